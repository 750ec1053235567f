#include <functional>
#include <gtest/gtest.h>

#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/appkit/text/NSTextStorage.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

struct Listener : TextStorageListener {
  NSTextStorage* storage = nullptr;
  std::vector<TextStorageEdit> edits;
  std::function<void(NSTextStorage&)> react;

  void setTextStorage(NSTextStorage* its) override { storage = its; }
  void processEditing(NSTextStorage& edited, const TextStorageEdit& edit) override {
    EXPECT_LE(NSMaxRange(edit.editedRange), edited.length());
    edits.push_back(edit);
    if (const auto once = std::exchange(react, nullptr)) once(edited);
  }
};

TEST(NSTextStorage, TellsOncePerEditOfAllThatLiesBetween) {
  const auto storage = make<NSTextStorage>(NSString("0123456789"));
  const auto listener = make<Listener>();
  storage->addLayoutManager(listener);
  EXPECT_EQ(listener->storage, storage.get());
  storage->beginEditing();
  storage->replaceCharacters({6, 2}, "abcd");
  storage->beginEditing();
  storage->deleteCharacters({1, 2});
  storage->endEditing();
  EXPECT_TRUE(listener->edits.empty());
  storage->endEditing();
  ASSERT_EQ(listener->edits.size(), 1u);
  EXPECT_EQ(storage->string(), "0345abcd89");
  EXPECT_EQ(listener->edits[0].editedRange, (NSRange{1, 7}));
  EXPECT_EQ(listener->edits[0].changeInLength, 0);
  EXPECT_TRUE(listener->edits[0].editedCharacters);

  storage->addAttribute("size", 1, {2, 3});
  EXPECT_FALSE(listener->edits.back().editedCharacters);
  EXPECT_EQ(listener->edits.back().editedRange, (NSRange{2, 3}));
  storage->removeLayoutManager(*listener);
  EXPECT_EQ(listener->storage, nullptr);
  storage->deleteCharacters({0, 1});
  EXPECT_EQ(listener->edits.size(), 2u);
  EXPECT_TRUE(stopLine([&] { storage->endEditing(); }));
}

TEST(NSTextStorage, AListenerMayEditAndLeaveWhileItIsTold) {
  auto storage = make<NSTextStorage>(NSString("0123456789"));
  const auto first = make<Listener>();
  const auto second = make<Listener>();
  storage->addLayoutManager(first);
  storage->addLayoutManager(second);
  first->react = [](NSTextStorage& its) { its.deleteCharacters({0, 9}); };
  storage->addAttribute("size", 1, {4, 6});
  EXPECT_EQ(first->edits.size(), 2u);
  ASSERT_EQ(second->edits.size(), 1u) << "both edits as one, of the text as it is by then";
  EXPECT_EQ(second->edits[0].changeInLength, -9);

  second->react = [&](NSTextStorage& its) {
    its.removeLayoutManager(*first);
    its.removeLayoutManager(*second);
    storage = nullptr;
  };
  storage->append(u"x", {});
  EXPECT_EQ(second->storage, nullptr);
}

TEST(NSParagraphStyle, IsEqualByValueAndItsCopiesAreIndependent) {
  const auto style = NSParagraphStyle::default_()->mutableCopy();
  EXPECT_TRUE(style->isEqual(make<NSParagraphStyle>().get()));
  const auto kept = style->copy();
  style->setLineSpacing(-3);
  EXPECT_EQ(style->lineSpacing(), 0);
  style->setTailIndent(4);
  EXPECT_FALSE(style->isEqual(kept.get()));
  EXPECT_EQ(kept->tailIndent(), 0);
}

}  // namespace
}  // namespace bkuk
