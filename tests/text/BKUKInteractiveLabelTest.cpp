#include "BrenvikUIKit/text/BKUKInteractiveLabel.h"
#include "platform/appkit/NSCursor.h"
#include "testing/VirtualScreenReader.h"
#include "tests/text/LabelFixture.h"

namespace bkuk {
namespace {

using Role = VirtualScreenReader::Role;

constexpr std::uint16_t tabKey = 48;
constexpr std::uint16_t spaceKey = 49;
constexpr std::uint16_t returnKey = 36;

struct BKUKInteractiveLabelTest : LabelFixture {
  BKUKInteractiveLabelTest() {
    label->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
    const auto press = [this](const std::string& name) {
      pressed.push_back(name);
      if (deed) deed();
    };
    EXPECT_TRUE(label->setMarkup("See [terms]terms[/terms] and [news]news[/news].", {}, style,
                                 {{"terms", press}, {"news", press}}));
    show(label, {0, 0, 200, 100});
  }

  [[nodiscard]] Ref<BKUKInteractiveLabel::LinkFrame> link(std::size_t index) const {
    return std::next(label->links().begin(), static_cast<std::ptrdiff_t>(index))->second;
  }
  /// Left of the middle of a link's second letter, as the window counts.
  [[nodiscard]] host::Point pointIn(std::size_t index) const {
    const auto rect = label->rects(*link(index)).front();
    return {rect.minX() + 10, rect.midY()};
  }

  const BKUKFontSettings style{NSColor::black(), 15, Type::regular, NSTextAlignment::left};
  std::vector<std::string> pressed;
  std::function<void()> deed;
  Ref<BKUKInteractiveLabel> label = BKUKInteractiveLabel::label("", style);
};

using Names = std::vector<std::string>;

TEST_F(BKUKInteractiveLabelTest, ThePointerFindsLinks) {
  EXPECT_EQ(label->stringValue(), "See terms and news.");
  ASSERT_EQ(label->links().size(), 2u);
  EXPECT_EQ(link(0)->range(), (NSRange{4, 5}));
  desktop().movePointer({5, 90});
  host->settle();
  desktop().movePointer(pointIn(0));
  host->settle();
  EXPECT_EQ(NSCursor::current(), NSCursor::pointingHand());
  desktop().movePointer({5, 5});
  host->settle();
  EXPECT_EQ(NSCursor::current(), NSCursor::arrow());
  desktop().click(pointIn(1));
  desktop().click({5, 5});
  EXPECT_EQ(pressed, Names{"news"});
  EXPECT_FALSE(label->cursored());
  // Of links that overlap the one that begins first is hit.
  label->addLink({0, 8}, "first", [this](const std::string& name) { pressed.push_back(name); });
  desktop().click(pointIn(1));
  EXPECT_EQ(pressed.back(), "first");
}

TEST_F(BKUKInteractiveLabelTest, TheKeyboardWalksThroughLinks) {
  const auto after = make<BKUKInteractiveLabel>();
  after->setStringValue("more");
  after->addLink({0, 4}, "more", [this](const std::string& name) { pressed.push_back(name); });
  show(after, {0, 0, 200, 30});
  desktop().typeKey(tabKey, "\t");
  EXPECT_EQ(window->firstResponder().get(), label.get());
  desktop().typeKey(spaceKey, " ");
  desktop().typeKey(tabKey, "\t");
  EXPECT_EQ(label->focusedLink(), link(1));
  EXPECT_FALSE(label->focusRingMaskBounds().isEmpty());
  desktop().typeKey(returnKey, "\r");
  desktop().typeKey(tabKey, "\t");
  EXPECT_EQ(window->firstResponder().get(), after.get());
  desktop().typeKey(spaceKey, " ");
  EXPECT_EQ(pressed, (Names{"terms", "news", "more"}));
  desktop().setModifiers({.shift = true});
  desktop().typeKey(tabKey, "\t");
  EXPECT_EQ(window->firstResponder().get(), label.get());
  EXPECT_EQ(label->focusedLink(), link(1)) << "backwards it comes in at the end";
  // Another text has other links, and nothing to focus.
  label->setStringValue("plain");
  EXPECT_TRUE(label->links().empty());
  EXPECT_FALSE(label->acceptsFirstResponder());
  EXPECT_EQ(window->firstResponder().get(), window.get());
}

TEST_F(BKUKInteractiveLabelTest, ArrowsFollowTheDirectionAndLeaveAtTheEnds) {
  struct Listener : NSView {
    using NSView::NSView;
    void keyDown(NSEvent& event) override { heard.push_back(event.keyCode()); }
    std::vector<int> heard;
  };
  const auto around = make<Listener>(NSRect(0, 0, 200, 100));
  window->contentView()->addSubview(around);
  around->addSubview(label);
  host->settle();
  window->makeFirstResponder(label.get());
  constexpr std::uint16_t left = 123;
  constexpr std::uint16_t right = 124;
  constexpr std::uint16_t up = 126;
  desktop().typeKey(left, "");
  desktop().typeKey(right, "");
  EXPECT_EQ(label->focusedLink(), link(1));
  desktop().typeKey(right, "");
  EXPECT_EQ(around->heard, (std::vector<int>{left, right})) << "those that find no further link";
  label->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
  desktop().typeKey(left, "");
  EXPECT_EQ(around->heard.back(), left);
  desktop().typeKey(right, "");
  EXPECT_EQ(label->focusedLink(), link(0));
  desktop().typeKey(up, "");
  EXPECT_EQ(around->heard.back(), up);
}

TEST_F(BKUKInteractiveLabelTest, TheRingStaysWithinTheLine) {
  label->setMarkup("a\n[b]bp[/b]\nc", {}, style, {{"b", {}}});
  host->settle();
  const auto line = label->rects(*link(0)).front();
  const auto pixels = [&] {
    std::vector<std::uint32_t> all;
    for (int y = 0; y < 100; ++y) {
      const bool isInLine = y + 1 > line.minY() && y < line.maxY();
      for (int x = 0; x < 200 && !isInLine; ++x) all.push_back(desktop().pixel(x, y));
    }
    return all;
  };
  const auto x = static_cast<int>(line.midX());
  const auto top = static_cast<int>(std::ceil(line.minY()));
  const auto before = pixels();
  const auto inside = desktop().pixel(x, top + 1);
  window->makeFirstResponder(label.get());
  host->settle();
  EXPECT_NE(desktop().pixel(x, top + 1), inside) << "there is a ring";
  EXPECT_EQ(pixels(), before);
}

TEST_F(BKUKInteractiveLabelTest, AssistiveClientsReachLinks) {
  VirtualScreenReader reader(*host);
  const auto text = reader.find(Role::staticText, "See terms and news.");
  const auto news = reader.find(Role::link, "news");
  ASSERT_NE(news, 0u);
  EXPECT_EQ(reader.children(reader.parent(news)).size(), 2u);
  EXPECT_EQ(text == 0 ? reader.element(reader.parent(news)).value : reader.name(text), "See terms and news.");
  EXPECT_TRUE(reader.press(news));
  EXPECT_EQ(pressed, Names{"news"});
  EXPECT_TRUE(reader.focus(news));
  EXPECT_EQ(reader.focused(), news);
  EXPECT_GT(reader.element(news).frame.width, 10);
  EXPECT_TRUE(reader.focus(reader.find(Role::link, "terms")));
  EXPECT_EQ(label->focusedLink(), link(0));
  // What a press does away with stays gone.
  deed = [&] { label->removeFromSuperview(); };
  EXPECT_TRUE(reader.press(news));
  EXPECT_FALSE(reader.exists(news));
}

TEST_F(BKUKInteractiveLabelTest, AnActionMayEndTheLabel) {
  deed = [&] {
    label->removeFromSuperview();
    label = make<BKUKInteractiveLabel>();
  };
  const auto point = pointIn(0);
  desktop().click(point);
  EXPECT_EQ(pressed, Names{"terms"});
}

TEST_F(BKUKInteractiveLabelTest, BadMarkupAndRangesMakeNoLinks) {
  EXPECT_FALSE(label->setMarkup("[terms]open", {}, style, {{"terms", {}}}));
  EXPECT_EQ(label->stringValue(), "[terms]open");
  EXPECT_TRUE(label->links().empty());
  label->addLink({5, static_cast<std::size_t>(-1)}, "far", {});
  label->addLink({3, 0}, "empty", {});
  EXPECT_TRUE(label->links().empty());
  label->addLink({0, 4}, "idle", {});
  desktop().click({4, 10});
  EXPECT_TRUE(pressed.empty());
}

}  // namespace
}  // namespace bkuk
