#include <gtest/gtest.h>
#include <numeric>
#include <set>

#include "host/qt/drawing/QtCanvas.h"
#include "host/qt/text/QtFonts.h"
#include "host/qt/text/QtTextLine.h"

namespace bkuk::host {
namespace {

constexpr auto leftToRight = TextDirection::leftToRight;
constexpr auto rightToLeft = TextDirection::rightToLeft;

struct TextParagraphTest : testing::Test {
  std::shared_ptr<const TextParagraph> shape(std::u16string_view text, TextDirection direction = leftToRight,
                                             TextRun run = {}) {
    run.length = text.size();
    run.font = font.get();
    return fonts.shape(text, {&run, 1}, direction);
  }

  // The units of the line by where they stand, from the left.
  std::u16string seen(std::u16string_view text, TextDirection direction, std::size_t from = 0,
                      std::size_t to = SIZE_MAX) {
    const auto line = shape(text, direction)->line(from, to);
    std::vector<std::size_t> order(line->units().size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return line->units()[i].x; });
    std::u16string result;
    for (const auto i : order) result.push_back(text[from + i]);
    return result;
  }

  QtFonts fonts;
  std::shared_ptr<const Font> font = fonts.font("DejaVuSans", 16);
};

TEST_F(TextParagraphTest, AdvancesAddUpToTheWidthOfEveryStretch) {
  const std::u16string text = u"Two words, and fi affine; \u0645\u0631\u062D\u0628\u0627 123 \u05E9\u05DC";
  const auto paragraph = shape(text);
  ASSERT_EQ(paragraph->advances().size(), text.size());
  const auto sum = [&](std::size_t from, std::size_t to) {
    double width = 0;
    for (std::size_t i = from; i < to; ++i) width += paragraph->advances()[i];
    return width;
  };
  EXPECT_NEAR(sum(0, text.size()), paragraph->width(), 1e-9);
  EXPECT_NEAR(sum(3, 20), paragraph->line(3, 20)->width(), 1e-9);
  EXPECT_NEAR(sum(28, 35), paragraph->line(28, 35)->width(), 1e-9);
}

TEST_F(TextParagraphTest, GivesEveryCharacterItsOwnGlyphs) {
  // A pair, a letter with a mark, and letters that the face would join.
  const std::u16string text =
      u"a\xD83D\xDE00"
      u"e\u0301"
      u"ffi";
  const auto line = shape(text)->line(0, text.size());
  const auto units = line->units();
  const bool starts[] = {true, true, false, true, false, true, true, true};
  for (std::size_t i = 0; i < text.size(); ++i) {
    EXPECT_EQ(units[i].startsCharacter, starts[i]) << i;
    EXPECT_EQ(units[i].advance > 0, starts[i]) << i;
  }
  EXPECT_EQ(units[2].x, units[1].x);
  EXPECT_NEAR(units[5].advance, units[6].advance, 1e-9) << "two letters f";
  EXPECT_NEAR(units[7].x + units[7].advance, line->width(), 1e-9);
}

// Of each of these pairs the text's own face has one half, and another face both.
TEST_F(TextParagraphTest, SetsACharacterInOneFace) {
  font = fonts.font("Inter-Regular", 16);
  ASSERT_TRUE(font && font->glyph(0x2764) != 0 && font->glyph(0x2601) == 0);
  const auto faces = [&](std::u16string_view text) {
    std::set<QString> names;
    const auto line = std::static_pointer_cast<const QtTextLine>(shape(text)->line(0, text.size()));
    for (const auto& run : line->runs()) names.insert(run.rawFont().familyName());
    return names;
  };
  EXPECT_EQ(faces(u"\u2764\u2601").size(), 2U) << "two characters";
  for (const auto* joined : {u"\u2601\u200D\u2764", u"\u2764\uFE0F\u200D\u2601"}) {
    EXPECT_EQ(faces(joined).size(), 1U);
    EXPECT_FALSE(faces(joined).contains("Inter"));
    const auto line = shape(joined)->line(0, SIZE_MAX);
    EXPECT_EQ(std::ranges::count(line->units(), true, &TextUnit::startsCharacter), 1);
  }
}

TEST_F(TextParagraphTest, ReordersBothDirections) {
  const std::u16string text = u"ab \u05D0\u05D1 12 \u05D2 cd";
  EXPECT_EQ(seen(text, leftToRight), u"ab \u05D2 12 \u05D1\u05D0 cd");
  EXPECT_EQ(seen(text, rightToLeft), u"cd \u05D2 12 \u05D1\u05D0 ab");
  EXPECT_EQ(seen(u"ab.", rightToLeft), u".ab");
  EXPECT_EQ(seen(u"\u202E"
                 u"ab1",
                 leftToRight),
            u"\u202E1ba")
      << "overridden";
  // An embedding that keeps Latin letters in a stretch that runs leftwards.
  EXPECT_EQ(seen(u"\u202B"
                 u"a \u05D0 b"
                 u"\u202C",
                 leftToRight)
                .substr(1, 5),
            u"b \u05D0 a");
}

TEST_F(TextParagraphTest, BreaksReorderedTextIntoLines) {
  const std::u16string text = u"ab \u05D0\u05D1 \u05D2\u05D3 cd";
  EXPECT_EQ(seen(text, leftToRight, 0, 6), u"ab \u05D1\u05D0 ") << "the space at the end stays at the end";
  EXPECT_EQ(seen(text, leftToRight, 6, 11), u"\u05D3\u05D2 cd");
  EXPECT_EQ(seen(text, rightToLeft, 0, 6), u" \u05D1\u05D0 ab");
  const auto breaks = shape(text)->lineBreaks();
  ASSERT_EQ(breaks.size(), text.size() + 1);
  EXPECT_EQ(breaks[3], LineBreak::allowed);
  EXPECT_EQ(breaks[2], LineBreak::none);
  EXPECT_EQ(shape(u"a\nb")->lineBreaks()[2], LineBreak::mandatory);
  EXPECT_EQ(shape(u"\u65E5\u672C\u8A9E\u3002")->lineBreaks()[1], LineBreak::allowed);
  EXPECT_EQ(shape(u"\u65E5\u672C\u8A9E\u3002")->lineBreaks()[3], LineBreak::none);
}

TEST_F(TextParagraphTest, KernSpacesCharactersAndPairKerningCanBeOff) {
  const double plain = shape(u"Toast AVA")->width();
  EXPECT_NEAR(shape(u"Toast AVA", leftToRight, {.kern = 2})->width(), plain + 18, 1e-9);
  EXPECT_GT(shape(u"Toast AVA", leftToRight, {.usesPairKerning = false})->width(), plain);
}

TEST_F(TextParagraphTest, SetsRunsInTheirOwnFonts) {
  const auto large = fonts.font("DejaVuSans-Bold", 32);
  const TextRun runs[] = {{2, font.get()}, {3, large.get()}, {1, font.get()}};
  const auto paragraph = fonts.shape(u"abcdefgh", runs, leftToRight);
  EXPECT_NEAR(paragraph->width(),
              shape(u"ab")->width() + large->shape(u"cde", leftToRight)->width() + shape(u"fgh")->width(),
              1e-9);
}

TEST_F(TextParagraphTest, DrawsPartsWhereTheyStandInTheLine) {
  for (const std::u16string_view text : {u"Words in a line", u"ab \u05D0\u05D1\u05D2\u05D3 cd efg"}) {
    const auto line = shape(text)->line(0, text.size());
    Bitmap whole({200, 40});
    Bitmap parts({200, 40});
    QtCanvas(whole).drawText(*line, {5, 30}, {0, 0, 0, 1});
    {
      QtCanvas canvas(parts);
      for (std::size_t i = 0; i < text.size(); i += 3) {
        canvas.drawText(*line->part(i, i + 3), {5, 30}, {0, 0, 0, 1});
      }
    }
    double difference = 0;
    double ink = 0;
    for (int y = 0; y < 40; ++y) {
      for (std::size_t x = 0; x < 200; ++x) {
        const double a = whole.row(y)[x] >> 24;
        difference += std::abs(a - static_cast<double>(parts.row(y)[x] >> 24));
        ink += a;
      }
    }
    EXPECT_GT(ink, 1000);
    EXPECT_LT(difference, ink / 50);
  }
}

TEST_F(TextParagraphTest, RemembersWordsAtAllSizes) {
  (void)shape(u"one two three");
  const auto before = fonts.shapedWordCount();
  const auto other = fonts.font("DejaVuSans", 47);
  EXPECT_GT(other->shape(u"three two  one", leftToRight)->width(), 0);
  EXPECT_EQ(fonts.shapedWordCount(), before + 1) << "two spaces are new";
  Bitmap bitmap({300, 60});
  QtCanvas canvas(bitmap);
  canvas.drawText(*other->shape(u"three two  one", leftToRight), {5, 50}, {0, 0, 0, 1});
  EXPECT_EQ(fonts.shapedWordCount(), before + 1);
}

TEST_F(TextParagraphTest, StandsBadText) {
  const std::u16string alone = u"a\xDC00z\xD800";
  EXPECT_EQ(shape(alone)->line(0, 4)->units().size(), 4u);
  const std::u16string controls = {u'a', 0, 7, u'b', 0x202E, u'c', 0x202E};
  EXPECT_GT(shape(controls)->width(), 0);
  EXPECT_EQ(shape(u"")->line(0, 9)->width(), 0);
  EXPECT_EQ(fonts.shape(u"text", {}, leftToRight)->length(), 0u);
  std::u16string marks = u"a" + std::u16string(5000, u'\u0301');
  EXPECT_EQ(shape(marks)->advances().size(), marks.size());
  std::u16string hebrew(50'000, u'\u05D0');
  EXPECT_EQ(shape(hebrew)->line(100, 200)->units().size(), 100u);
}

TEST_F(TextParagraphTest, TellsTheDirectionOfTheFirstStrongLetter) {
  EXPECT_EQ(fonts.strongDirection(u"12 (ab \u05D0"), leftToRight);
  EXPECT_EQ(fonts.strongDirection(u"12 \u0645 ab"), rightToLeft);
  EXPECT_EQ(fonts.strongDirection(u"\u2067\u05D0\u2069 ab"), leftToRight) << "an isolate does not count";
  EXPECT_EQ(fonts.strongDirection(u"\xD83A\xDD00"), rightToLeft) << "a letter outside of the first plane";
  EXPECT_EQ(fonts.strongDirection(u"12 \xD83D?"), std::nullopt);
}

TEST_F(TextParagraphTest, InkLiesWithinTheOutlines) {
  const auto ink = shape(u"xg")->line(0, 2)->inkBounds();
  EXPECT_NEAR(ink.y + ink.height, font->metrics().xHeight, 0.3);
  EXPECT_LT(ink.y, -2);
  EXPECT_LT(ink.width, shape(u"xg")->width());
  EXPECT_EQ(shape(u" ")->line(0, 1)->inkBounds(), Rect{});
}

TEST_F(TextParagraphTest, WordsThatAreNewTogetherAreSetAsEachAlone) {
  const std::u16string text = u"AVAst, To: fiffig wAVe AVAst";
  const auto together = shape(text)->line(0, text.size());
  EXPECT_EQ(fonts.shapedWordCount(), 6u) << "five words and the space";
  QtFonts others;
  const auto same = others.font("DejaVuSans", 16);
  for (std::size_t from = 0; from < text.size(); from = text.find(u' ', from) + 1) {
    const std::size_t end = std::min(text.find(u' ', from), text.size());
    const auto alone = same->shape(text.substr(from, end - from), leftToRight);
    for (std::size_t i = from; i < end; ++i) {
      EXPECT_NEAR(together->units()[i].advance, alone->units()[i - from].advance, 1e-3) << i;
    }
    if (end == text.size()) break;
  }
}

TEST_F(TextParagraphTest, ByteOrderMarksAreUnitsLikeOthers) {
  for (const std::u16string text :
       {u"\uFEFFab", u"\xFFFE\x6100\x6200", u"\uFEFF\u05D0 ab", u"\xFFFE\u05D0 ab"}) {
    const auto paragraph = shape(text);
    EXPECT_EQ(paragraph->advances().size(), text.size());
    EXPECT_EQ(paragraph->line(0, text.size())->units().size(), text.size());
  }
  EXPECT_EQ(shape(u"\xFFFE\x6100")->advances()[1], shape(u"a\x6100")->advances()[1])
      << "no bytes are swapped";
}

}  // namespace
}  // namespace bkuk::host
