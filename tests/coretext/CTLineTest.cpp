#include <gtest/gtest.h>

#include "platform/coretext/CTLine.h"
#include "tests/coregraphics/Picture.h"

namespace bkuk {
namespace {

// The first and the last row that have ink.
std::pair<int, int> inkRows(const Picture& picture) {
  int first = -1;
  int last = -1;
  for (int y = 0; y < picture.bitmap.size().height; ++y) {
    for (int x = 0; x < picture.bitmap.size().width; ++x) {
      if (picture.alpha(x, y) < 64) continue;
      if (first < 0) first = y;
      last = y;
    }
  }
  return {first, last};
}

Ref<CTLine> line(const char* text, CGFloat size = 20) { return make<CTLine>(text, CTFont::systemFont(size)); }

TEST(CTLine, WidthGrowsWithTextAndSize) {
  VirtualHostScope host;
  EXPECT_EQ(line("")->width(), 0);
  EXPECT_GT(line("ii")->width(), line("i")->width());
  EXPECT_NEAR(line("wide", 40)->width(), 2 * line("wide", 20)->width(), 0.1);
  EXPECT_GT(line("x")->ascent(), line("x")->descent());
  EXPECT_GT(line("x")->descent(), 0);
}

TEST(CTLine, StandsOnItsBaselineWhicheverWayYRuns) {
  Picture up(60, 60);
  line("L")->draw(*up.context, {5, 20}, *CGColor::black());
  Picture down(60, 60);
  down->concatenate({1, 0, 0, -1, 0, 60});
  line("L")->draw(*down.context, {5, 40}, *CGColor::black());
  EXPECT_EQ(inkRows(up).second, 39) << "the row above the baseline";
  EXPECT_EQ(inkRows(up), inkRows(down));
  EXPECT_LT(up.alpha(14, 28), up.alpha(14, 38)) << "the bar of the letter is below";
}

TEST(CTLine, BaselineSnapsToDevicePixels) {
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    Picture sharp(60, 60, scale);
    Picture between(60, 60, scale);
    line("E")->draw(*sharp.context, {5, 20 / scale}, *CGColor::black());
    line("E")->draw(*between.context, {5, 20.4 / scale}, *CGColor::black());
    EXPECT_EQ(inkRows(sharp), inkRows(between)) << scale;
    EXPECT_DOUBLE_EQ(sharp.coverage(), between.coverage()) << scale;
  }
}

TEST(CTFont, UnknownNamesGiveNoFont) {
  VirtualHostScope host;
  EXPECT_FALSE(CTFont::font("NoSuchFace-Anywhere", 12));
  const auto system = CTFont::systemFont(12);
  const auto same = CTFont::font(system->postScriptName(), 12);
  ASSERT_TRUE(same);
  EXPECT_DOUBLE_EQ(same->ascent(), system->ascent());
}

}  // namespace
}  // namespace bkuk
