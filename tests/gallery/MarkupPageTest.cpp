#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gallery/brand/Brand.h"
#include "gallery/pages/markup/MarkupEditor.h"
#include "gallery/pages/markup/MarkupPage.h"
#include "testing/VirtualHostScope.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk::gallery {
namespace {

using testing::HasSubstr;
using Role = VirtualScreenReader::Role;

constexpr std::uint16_t deleteKey = 51;
constexpr std::uint16_t returnKey = 36;
constexpr std::uint16_t tabKey = 48;
constexpr std::uint16_t homeKey = 115;
constexpr std::uint16_t endKey = 119;
constexpr std::uint16_t leftKey = 123;
constexpr std::uint16_t rightKey = 124;

/// The page with the keyboard on its empty editor.
class MarkupPageTest : public testing::Test {
 protected:
  MarkupPageTest() {
    installBrand();
    page = make<MarkupPage>();
    page->setFrame({0, 0, 600, 700});
    window->contentView()->addSubview(page);
    window->makeKeyAndOrderFront();
    editor().setText("");
    window->makeFirstResponder(&editor());
    host->settle();
  }
  ~MarkupPageTest() override { window->close(); }

  MarkupEditor& editor() { return static_cast<MarkupEditor&>(*page->keyViews().front()); }
  void press(std::initializer_list<std::uint16_t> keys) {
    for (const auto key : keys) host->windows().front()->typeKey(key);
  }
  void type(std::initializer_list<std::string_view> characters) {
    for (const auto typed : characters) host->windows().front()->typeKey(0, typed);
  }
  /// What assistive clients read on the card of that title, the title itself aside.
  std::string shown(std::string_view card) {
    std::string all;
    for (const auto id : reader.children(reader.find(Role::group, card))) {
      if (reader.element(id).role != Role::heading) all += reader.name(id) + "|";
    }
    return all;
  }

  VirtualHostScope host;
  VirtualScreenReader reader{*host};
  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 600, 700));
  Ref<MarkupPage> page;
};

TEST_F(MarkupPageTest, KeysEditTheTextAroundTheCaret) {
  type({"a", "c", "😀"});
  press({leftKey, leftKey});
  type({"b"});
  EXPECT_EQ(editor().text(), "abc😀");
  press({endKey, deleteKey, returnKey});
  type({"d"});
  EXPECT_EQ(editor().text(), "abc\nd") << "an emoji goes at once";
  press({homeKey, deleteKey, rightKey, deleteKey});
  EXPECT_EQ(editor().text(), "bc\nd") << "nothing is before the first";
  EXPECT_EQ(reader.element(reader.focused()).value, "bc\nd");
}

TEST_F(MarkupPageTest, AClickPutsTheCaretNextToWhatItHits) {
  type({"a", "b", "😀"});
  const NSPoint corner = editor().convertPointTo({0, 0}, nullptr);
  const double top = window->contentView()->bounds().height() - corner.y;
  host->windows().front()->click({corner.x + 400, top + 20});
  type({"c"});
  host->windows().front()->click({corner.x + 12, top + 20});
  type({"d"});
  EXPECT_EQ(editor().text(), "dab😀c");
}

TEST_F(MarkupPageTest, KeysThatTypeNothingGoOn) {
  const auto sample = page->keyViews().back();
  editor().setNextKeyView(sample);
  host->setFullKeyboardAccessEnabled(true);
  host->windows().front()->setModifiers({.control = true});
  type({"x"});
  host->windows().front()->setModifiers({});
  press({tabKey});
  EXPECT_EQ(editor().text(), "");
  EXPECT_EQ(window->firstResponder().get(), sample);
}

TEST_F(MarkupPageTest, TheTextFollowsTheMarkup) {
  type({"[b]", "x", "[/b]"});
  EXPECT_EQ(shown("Text"), "Well formed|x|");
  press({deleteKey});
  EXPECT_THAT(shown("Text"), HasSubstr("Malformed"));
  EXPECT_THAT(shown("Text"), HasSubstr("|[b]x[/b|"));
  const auto before = page->heightForWidth(600);
  for (int line = 0; line < 8; ++line) press({returnKey});
  EXPECT_GT(page->heightForWidth(600), before) << "no line is cut off";
  reader.press(reader.find(Role::button, "Unknown tag"));
  EXPECT_THAT(shown("Text"), HasSubstr("[u]unknown tag[/u]"));
}

}  // namespace
}  // namespace bkuk::gallery
