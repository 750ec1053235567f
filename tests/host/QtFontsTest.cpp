#include <gtest/gtest.h>
#include <limits>

#include "host/qt/drawing/QtCanvas.h"
#include "host/qt/text/QtFonts.h"

namespace bkuk::host {
namespace {

constexpr auto leftToRight = TextDirection::leftToRight;

double widthOf(const Font& font, std::u16string_view text) { return font.shape(text, leftToRight)->width(); }

TEST(QtFonts, FindsFacesByPostScriptNameOnly) {
  QtFonts fonts;
  const auto bold = fonts.font("DejaVuSans-Bold", 13);
  ASSERT_TRUE(bold);
  EXPECT_EQ(bold->postScriptName(), "DejaVuSans-Bold");
  EXPECT_FALSE(fonts.font("DejaVu Sans", 13));
  EXPECT_FALSE(fonts.font("NoSuchFace-Regular", 13));
  EXPECT_FALSE(fonts.font("", 13));
}

TEST(QtFonts, ChoosesTheWeightThatTheNameSays) {
  QtFonts fonts;
  for (const char* name : {"Inter-Regular", "Inter-SemiBold", "Inter-Bold", "Inter-Italic"}) {
    const auto font = fonts.font(name, 13);
    ASSERT_TRUE(font) << name;
    EXPECT_EQ(font->postScriptName(), name);
  }
}

TEST(QtFonts, MeasuresFractionsOfPoints) {
  QtFonts fonts;
  // 2048 units to the em, ascender 1901, descender -483, cap height 1493, x height 1120.
  const auto metrics = fonts.font("DejaVuSans", 12.5)->metrics();
  EXPECT_DOUBLE_EQ(metrics.ascent, 12.5 * 1901 / 2048);
  EXPECT_DOUBLE_EQ(metrics.descent, 12.5 * 483 / 2048);
  EXPECT_DOUBLE_EQ(metrics.capHeight, 12.5 * 1493 / 2048);
  EXPECT_DOUBLE_EQ(metrics.xHeight, 12.5 * 1120 / 2048);
  // "H" is 1540 units wide.
  for (const double size : {9.0, 11.3, 13.0, 40.0}) {
    EXPECT_NEAR(widthOf(*fonts.font("DejaVuSans", size), u"H"), size * 1540 / 2048, 0.01) << size;
  }
}

TEST(QtFonts, KeepsEverythingOnOneLine) {
  QtFonts fonts;
  const auto font = fonts.systemFont(13, 400);
  EXPECT_NEAR(widthOf(*font, u"a\nb\u2029c\u2028d"), widthOf(*font, u"a b c d"), 0.01);
  EXPECT_EQ(widthOf(*font, u""), 0);
}

TEST(QtFonts, SubstitutesMissingGlyphsAndReordersBothWays) {
  QtFonts fonts;
  const auto font = fonts.font("Inter-Regular", 13);
  ASSERT_TRUE(font);
  EXPECT_GT(widthOf(*font, u"\u05E9\u05DC\u05D5\u05DD"), 10);
  EXPECT_NEAR(font->shape(u"abc \u05E9\u05DC", TextDirection::rightToLeft)->width(),
              widthOf(*font, u"abc \u05E9\u05DC"), 0.01);
}

TEST(QtFonts, StandsAbsurdSizesAndLengths) {
  QtFonts fonts;
  for (const double size : {-1.0, 0.0, 1e-9, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_GE(widthOf(*fonts.systemFont(size, 400), u"Wide"), 0) << size;
  }
  const std::u16string lengthy(200'000, u'm');
  const auto font = fonts.font("DejaVuSans", 12);
  EXPECT_NEAR(widthOf(*font, lengthy) / (200'000 * 12 * 1995.0 / 2048), 1, 0.05);
}

TEST(QtFonts, DrawsUprightFromTheBaseline) {
  QtFonts fonts;
  Bitmap bitmap({40, 40});
  QtCanvas canvas(bitmap);
  canvas.drawText(*fonts.font("DejaVuSans", 20)->shape(u"H", leftToRight), {10, 30}, {0, 0, 0, 1});
  const auto inkIn = [&](int from, int to) {
    bool found = false;
    for (int y = from; y < to; ++y) {
      for (const auto pixel : bitmap.row(y)) found = found || pixel != 0;
    }
    return found;
  };
  EXPECT_TRUE(inkIn(16, 30));
  EXPECT_FALSE(inkIn(31, 40));
  EXPECT_FALSE(inkIn(0, 14));
}

}  // namespace
}  // namespace bkuk::host
