#include <gtest/gtest.h>

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSLayoutManager.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "tests/coregraphics/Picture.h"

namespace bkuk {
namespace {

constexpr auto wrapped =
    NSStringDrawingOptions::usesLineFragmentOrigin | NSStringDrawingOptions::usesFontLeading;

struct NSLayoutManagerTest : testing::Test {
  NSLayoutManagerTest() {
    container->setLineFragmentPadding(0);
    manager->addTextContainer(container);
    storage->addLayoutManager(manager);
  }

  [[nodiscard]] NSAttributeDictionary look() const {
    return {{NSFontAttributeName, font}, {NSParagraphStyleAttributeName, style->copy()}};
  }
  void set(const char* utf8, CGFloat width = 0) {
    container->setSize({width, 0});
    storage->setAttributedString(*make<NSAttributedString>(NSString(utf8), look()));
  }
  [[nodiscard]] CGFloat widthOf(const char* utf8) const {
    return NSAttributedString(NSString(utf8), look()).size().width;
  }
  [[nodiscard]] CGFloat lineHeight() const { return font->ascender() - font->descender() + font->leading(); }
  [[nodiscard]] NSRect used() { return manager->usedRect(*container); }
  /// The text of each line.
  [[nodiscard]] std::vector<std::string> lines() {
    std::vector<std::string> all;
    for (std::size_t at = 0; at < storage->length();) {
      NSRange line;
      (void)manager->lineFragmentRect(at, &line);
      if (line.length == 0) break;
      all.push_back(storage->string().substring(line).utf8());
      at = NSMaxRange(line);
    }
    return all;
  }
  std::size_t hit(CGFloat x, CGFloat y, CGFloat* fraction = nullptr) {
    return manager->glyphIndex({x, y}, *container, fraction);
  }

  VirtualHostScope host;
  Ref<NSFont> font = NSFont::font("DejaVuSans", 20);
  Ref<NSMutableParagraphStyle> style = make<NSMutableParagraphStyle>();
  Ref<NSTextStorage> storage = make<NSTextStorage>();
  Ref<NSLayoutManager> manager = make<NSLayoutManager>();
  Ref<NSTextContainer> container = make<NSTextContainer>();
};

using Lines = std::vector<std::string>;

TEST_F(NSLayoutManagerTest, BreaksBetweenWordsWithinWordsAndAtBreaks) {
  set("one two three", widthOf("one two") + 1);
  EXPECT_EQ(lines(), (Lines{"one two ", "three"}));
  EXPECT_NEAR(used().width(), widthOf("one two"), 1e-9) << "the space hangs";
  EXPECT_NEAR(used().height(), 2 * lineHeight(), 1e-9);
  set("unbreakable", widthOf("unbr") + 1);
  EXPECT_EQ(lines(), (Lines{"unbr", "eak", "able"}));
  style->setLineBreakMode(NSLineBreakMode::charWrapping);
  set("one two", widthOf("one tw") + 1);
  EXPECT_EQ(lines(), (Lines{"one tw", "o"}));
  set("a\r\nb\xE2\x80\xA8"
      "c\n\n");
  EXPECT_EQ(lines(), (Lines{"a\r\n", "b\xE2\x80\xA8", "c\n", "\n"}));
  EXPECT_NEAR(used().height(), 5 * lineHeight(), 1e-9) << "the last break begins a line";
  set("\xF0\x9F\x98\x80\xF0\x9F\x98\x80", 1);
  EXPECT_EQ(lines().size(), 2u) << "pairs stay whole, however narrow it is";
  set("");
  EXPECT_EQ(used(), NSRect());
  EXPECT_EQ(hit(5, 5), 0u);
}

TEST_F(NSLayoutManagerTest, LineHeightsFollowTheParagraphStyle) {
  style->setMinimumLineHeight(40);
  style->setLineSpacing(7);
  set("a\nb");
  EXPECT_NEAR(used().height(), 40 + 7 + 40, 1e-9) << "no spacing below the last";
  EXPECT_NEAR(manager->lineFragmentRect(0).height(), 47, 1e-9);
  EXPECT_NEAR(manager->lineFragmentUsedRect(0).height(), 40, 1e-9);
  EXPECT_NEAR(manager->location(0).y, 40 + font->descender() - font->leading(), 1e-9) << "room goes above";
  style->setMinimumLineHeight(0);
  style->setMaximumLineHeight(10);
  style->setLineSpacing(0);
  set("a\nb");
  EXPECT_NEAR(used().height(), 20, 1e-9);
  style->setMaximumLineHeight(0);
  style->setLineHeightMultiple(2);
  set("a");
  EXPECT_NEAR(used().height(), 2 * lineHeight(), 1e-9);
  // Fonts of two sizes stand on one baseline.
  style->setLineHeightMultiple(0);
  set("ab");
  storage->addAttribute(NSFontAttributeName, NSFont::font("DejaVuSans", 40), {1, 1});
  EXPECT_NEAR(used().height(), 2 * lineHeight(), 1e-9);
  EXPECT_EQ(manager->location(0).y, manager->location(1).y);
}

TEST_F(NSLayoutManagerTest, AlignsLinesWithinTheContainerAndTheInterface) {
  const CGFloat width = widthOf("ab");
  const auto left = [&] { return manager->boundingRect({0, 1}, *container).minX(); };
  for (const auto& [alignment, expected] :
       {std::pair(NSTextAlignment::left, 0.0), std::pair(NSTextAlignment::center, (100 - width) / 2),
        std::pair(NSTextAlignment::right, 100 - width), std::pair(NSTextAlignment::natural, 0.0)}) {
    style->setAlignment(alignment);
    set("ab", 100);
    EXPECT_NEAR(left(), expected, 1e-9) << static_cast<int>(alignment);
  }
  manager->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_NEAR(left(), 100 - width, 1e-9) << "natural is where the interface begins";
  style->setLineBreakMode(NSLineBreakMode::clipping);
  set("ab", width / 2);
  EXPECT_EQ(left(), 0) << "of a line that is too long the beginning is seen";
  style->setLineBreakMode(NSLineBreakMode::wordWrapping);
  // Without a width to go by, the widest line is the measure.
  style->setAlignment(NSTextAlignment::right);
  set("ab\nabcd");
  EXPECT_NEAR(left(), widthOf("abcd") - width, 1e-9);
  EXPECT_NEAR(used().width(), widthOf("abcd"), 1e-9);
}

TEST_F(NSLayoutManagerTest, JustifiedLinesReachBothEdgesButForTheLast) {
  style->setAlignment(NSTextAlignment::justified);
  set("a b c dddd e", widthOf("a b c d") + 1);
  ASSERT_EQ(lines().front(), "a b c ");
  const CGFloat full = container->size().width;
  EXPECT_NEAR(manager->boundingRect({0, 5}, *container).maxX(), full, 1e-9);
  const auto gap = [&](std::size_t i) { return manager->boundingRect({i, 1}, *container).width(); };
  EXPECT_NEAR(gap(1), gap(3), 1e-9);
  EXPECT_GT(gap(1), widthOf(" "));
  EXPECT_LT(manager->lineFragmentUsedRect(storage->length() - 1).width(), full);
  EXPECT_EQ(hit(full - 1, 5), 4u);
}

TEST_F(NSLayoutManagerTest, TruncationHidesWhatDoesNotFit) {
  const CGFloat width = 120;
  const NSString text("The quick brown fox jumps");
  const auto shown = [&](NSLineBreakMode mode) {
    style->setLineBreakMode(mode);
    set("The quick brown fox jumps", width);
    EXPECT_EQ(lines().size(), 1u);
    EXPECT_LE(used().width(), width + 1e-6);
    EXPECT_GT(used().width(), width - 25);
    return manager->truncatedGlyphRange(0);
  };
  const auto tail = shown(NSLineBreakMode::truncatingTail);
  EXPECT_EQ(NSMaxRange(tail), text.length());
  EXPECT_NE(text.characterAt(tail.location - 1), u' ') << "no space before the ellipsis";
  EXPECT_EQ(shown(NSLineBreakMode::truncatingHead).location, 0u);
  const auto middle = shown(NSLineBreakMode::truncatingMiddle);
  EXPECT_GT(middle.location, 2u);
  EXPECT_LT(NSMaxRange(middle), text.length() - 2);
  // What hides behind the ellipsis has no width, and what follows stands behind it.
  EXPECT_EQ(manager->boundingRect({middle.location + 1, 1}, *container).width(), 0);
  EXPECT_NEAR(manager->boundingRect({text.length() - 1, 1}, *container).maxX(), used().maxX(), 1e-9);
  style->setLineBreakMode(NSLineBreakMode::truncatingTail);
  set("The quick", 3);
  EXPECT_EQ(manager->truncatedGlyphRange(0), (NSRange{0, 9})) << "an ellipsis stays";
  set("The quick", widthOf("The quick"));
  EXPECT_EQ(manager->truncatedGlyphRange(0).location, NSNotFound);
  // Spacing that sets letters over each other makes more text narrower than less.
  set("The quick", 3);
  storage->addAttribute(NSKernAttributeName, -30, {1, 8});
  EXPECT_EQ(lines().size(), 1u);
  // Letters move together first, where they may.
  style->setAllowsDefaultTighteningForTruncation(true);
  const CGFloat natural = widthOf("The quick");
  set("The quick", natural * 0.97);
  EXPECT_EQ(manager->truncatedGlyphRange(0).location, NSNotFound);
  EXPECT_LE(used().width(), natural * 0.97 + 1e-6);
}

TEST_F(NSLayoutManagerTest, AContainerShowsAsMuchAsItMay) {
  container->setMaximumNumberOfLines(2);
  set("one two three four", widthOf("three") + 1);
  EXPECT_EQ(manager->glyphRange(*container), (NSRange{0, 8}));
  container->setLineBreakMode(NSLineBreakMode::truncatingTail);
  EXPECT_EQ(manager->glyphRange(*container), (NSRange{0, storage->length()}));
  EXPECT_NE(manager->truncatedGlyphRange(5).location, NSNotFound);
  set("one\ntwo\nthree", 200);
  EXPECT_GT(manager->lineFragmentUsedRect(4).width(), widthOf("two"))
      << "an ellipsis says that there is more";
  // By height, and on into a second container.
  container->setMaximumNumberOfLines(0);
  container->setSize({200, lineHeight() * 2.5});
  const auto second = make<NSTextContainer>(NSSize{200, 0});
  manager->addTextContainer(second);
  EXPECT_EQ(manager->glyphRange(*container), (NSRange{0, 8}));
  EXPECT_EQ(manager->glyphRange(*second), (NSRange{8, 5}));
  EXPECT_EQ(manager->lineFragmentRect(9).minY(), 0);
}

TEST_F(NSLayoutManagerTest, FindsGlyphsUnderPointsInBothDirections) {
  set("ab\ncdef");
  CGFloat fraction = -1;
  const auto b = manager->boundingRect({1, 1}, *container);
  EXPECT_EQ(hit(b.minX() + b.width() / 4, -50, &fraction), 1u) << "above the first line";
  EXPECT_NEAR(fraction, 0.25, 1e-9);
  EXPECT_EQ(hit(-5, 1000, &fraction), 3u) << "below the last, left of it";
  EXPECT_EQ(fraction, 0);
  EXPECT_EQ(hit(500, 1000, &fraction), 6u);
  EXPECT_EQ(fraction, 1);
  EXPECT_EQ(hit(b.maxX() + 3, 1), 2u) << "the break";
  EXPECT_EQ(manager->boundingRect({1, SIZE_MAX}, *container), manager->boundingRect({1, 6}, *container));
  EXPECT_EQ(manager->boundingRect({SIZE_MAX, SIZE_MAX}, *container), NSRect());
  // Hebrew in an English line: the letters that come first in the text stand right.
  set("ab \xD7\xA9\xD7\x9C cd");
  const auto shin = manager->boundingRect({3, 1}, *container);
  const auto lamed = manager->boundingRect({4, 1}, *container);
  EXPECT_GT(shin.minX(), lamed.minX());
  EXPECT_EQ(hit(lamed.midX(), 5), 4u);
  EXPECT_EQ(manager->rects({0, 4}, *container).size(), 2u) << "a selection in two pieces";
}

TEST_F(NSLayoutManagerTest, KernCountsAfterEveryGlyphAndZeroSwitchesPairKerningOff) {
  set("AVA");
  const CGFloat kerned = used().width();
  storage->addAttribute(NSKernAttributeName, 0, {0, 3});
  const CGFloat plain = used().width();
  EXPECT_GT(plain, kerned);
  storage->addAttribute(NSKernAttributeName, 4, {0, 3});
  EXPECT_NEAR(used().width(), kerned + 12, 1e-9);
}

TEST_F(NSLayoutManagerTest, MeasuresAsItSets) {
  set("one two three", 90);
  const NSRect measured = storage->boundingRect({90, 0}, wrapped);
  EXPECT_EQ(measured.size, used().size);
  EXPECT_NEAR(storage->boundingRect({-1, -1}, wrapped).width(), widthOf("one two three"), 1e-9);
  const NSRect line = storage->boundingRect({90, 0}, NSStringDrawingOptions::none);
  EXPECT_NEAR(line.width(), widthOf("one two three"), 1e-9) << "one line";
  EXPECT_NEAR(line.minY(), font->descender(), 1e-9) << "seen from its baseline";
  const NSAttributedString dot(NSString("."), look());
  const NSRect ink = dot.boundingRect({}, NSStringDrawingOptions::usesDeviceMetrics);
  EXPECT_NEAR(ink.minY(), 0, 0.5);
  EXPECT_LT(ink.height(), 4);
  EXPECT_EQ(NSAttributedString().size(), NSSize());
  EXPECT_GT(NSAttributedString(NSString("without attributes")).size().width, 50);
}

/// Counts what it is asked to underline.
struct UnderlineCounter : NSLayoutManager {
  void drawUnderline(NSRange range, NSUnderlineStyle style, CGFloat offset, NSRect rect, NSRange line,
                     NSPoint origin) override {
    ranges.push_back(range);
    NSLayoutManager::drawUnderline(range, style, offset, rect, line, origin);
    if (deed) deed();
  }
  std::vector<NSRange> ranges;
  std::function<void()> deed;
};

TEST(NSLayoutManagerDrawing, DrawsTextInItsColoursWithLinesBelow) {
  Picture picture(120, 60);
  const auto font = NSFont::font("DejaVuSans", 20);
  const auto storage =
      make<NSTextStorage>(NSString("Ab cd"), NSAttributeDictionary{{NSFontAttributeName, font}});
  const auto manager = make<UnderlineCounter>();
  const auto container = make<NSTextContainer>();
  manager->addTextContainer(container);
  storage->addLayoutManager(manager);
  manager->drawGlyphs({0, 99}, {});
  EXPECT_TRUE(picture.isBlank()) << "no context";
  picture->concatenate({1, 0, 0, -1, 0, 60});
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(picture.context, true));
  const auto inkOf = [&] {
    picture.bitmap.fill({0, 0, 120, 60}, 0);
    manager->drawBackground({0, 99}, {});
    manager->drawGlyphs({0, 99}, {});
    return picture.coverage();
  };
  const double text = inkOf();
  EXPECT_GT(text, 50);
  storage->addAttribute(NSUnderlineStyleAttributeName, NSUnderlineStyle::single, {0, 5});
  const double single = inkOf();
  storage->addAttribute(NSUnderlineStyleAttributeName, NSUnderlineStyle::thick, {0, 5});
  const double thick = inkOf();
  storage->addAttribute(NSUnderlineStyleAttributeName,
                        NSUnderlineStyle::single | NSUnderlineStyle::patternDot, {0, 5});
  const double dotted = inkOf();
  EXPECT_GT(single, text + 30);
  EXPECT_GT(thick, single + 20);
  EXPECT_GT(dotted, text);
  EXPECT_LT(dotted, single);
  manager->ranges.clear();
  storage->addAttribute(NSUnderlineStyleAttributeName, NSUnderlineStyle::single | NSUnderlineStyle::byWord,
                        {0, 5});
  (void)inkOf();
  EXPECT_EQ(manager->ranges, (std::vector<NSRange>{{0, 2}, {3, 2}}));
  storage->addAttribute(NSBackgroundColorAttributeName, NSColor::red(), {0, 2});
  EXPECT_GT(inkOf(), single + 200);
  // What draws lines may empty the text.
  manager->deed = [&] { storage->setAttributedString(*make<NSAttributedString>()); };
  storage->addAttribute(NSForegroundColorAttributeName, NSColor::red(), {1, 1});
  (void)inkOf();
  EXPECT_EQ(storage->length(), 0u);
}

}  // namespace
}  // namespace bkuk
