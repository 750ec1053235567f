#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>

#include "BrenvikUIKit/drawing/LinePatternFit.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using Modification = BKUKLinePatternModification;
using Pattern = std::vector<CGFloat>;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Optional;
using testing::StartsWith;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr Modification stretching[] = {Modification::resizePatternDashes, Modification::resizePatternSpaces,
                                       Modification::resizeDashAndSpace,
                                       Modification::resizeSpaceBetweenPatterns};

Pattern fitted(const Pattern& pattern, const LinePatternFit& fit) { return fittedLinePattern(pattern, fit); }

CGFloat sum(const Pattern& pattern) { return std::accumulate(pattern.begin(), pattern.end(), 0.0); }

auto near(CGFloat value) { return DoubleNear(value, 1e-9); }

// Properties

/// A random pattern of an even number of visible elements on a path that is long enough for some of it.
struct RandomFit {
  Pattern pattern;
  LinePatternFit fit;
};

RandomFit randomFit(std::mt19937& random) {
  std::uniform_real_distribution<CGFloat> element(0.5, 12);
  RandomFit made;
  made.pattern.resize(2 * std::uniform_int_distribution<std::size_t>(1, 4)(random));
  for (CGFloat& each : made.pattern) each = element(random);
  made.fit.pathLength = std::uniform_real_distribution<CGFloat>(200, 3000)(random);
  made.fit.pathLoops = random() % 2 == 0;
  if (random() % 2 == 0) made.fit.count = std::uniform_int_distribution<std::int64_t>(2, 300)(random);
  return made;
}

std::int64_t expectedCount(const RandomFit& made) {
  const auto fitting = static_cast<std::int64_t>(made.fit.pathLength / sum(made.pattern));
  return std::min(fitting, made.fit.count.value_or(fitting));
}

TEST(LinePatternFit, FillsThePathWithWholePatterns) {
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    RandomFit made = randomFit(random);
    for (const Modification modification : stretching) {
      made.fit.modification = modification;
      const Pattern result = fitted(made.pattern, made.fit);
      const bool endsWithDash =
          modification == Modification::resizeSpaceBetweenPatterns && !made.fit.pathLoops;
      const CGFloat covered = static_cast<CGFloat>(expectedCount(made)) * sum(result);
      EXPECT_NEAR(covered - (endsWithDash ? result.back() : 0), made.fit.pathLength, 1e-6);
    }
  }
}

TEST(LinePatternFit, StretchesOnlyWhatItsModificationNamesAndKeepsProportions) {
  std::mt19937 random(2);
  for (int round = 0; round < 500; ++round) {
    RandomFit made = randomFit(random);
    made.fit.count.reset();
    for (const Modification modification : stretching) {
      made.fit.modification = modification;
      const Pattern result = fitted(made.pattern, made.fit);
      std::optional<CGFloat> stretch;
      for (std::size_t i = 0; i < result.size(); ++i) {
        const bool isDash = i % 2 == 0;
        const bool isLast = i + 1 == result.size();
        const bool mayGrow = modification == Modification::resizeDashAndSpace ||
                             (modification == Modification::resizePatternDashes && isDash) ||
                             (modification == Modification::resizePatternSpaces && !isDash) ||
                             (modification == Modification::resizeSpaceBetweenPatterns && isLast);
        if (!mayGrow) {
          EXPECT_EQ(result[i], made.pattern[i]);
          continue;
        }
        const CGFloat factor = result[i] / made.pattern[i];
        EXPECT_GE(factor, 1);
        EXPECT_NEAR(factor, stretch.value_or(factor), 1e-9);
        stretch = factor;
      }
    }
  }
}

// Single cases

TEST(LinePatternFit, EndsAnOpenPathWithADash) {
  EXPECT_THAT(fitted({4, 2}, {.pathLength = 100}), ElementsAre(4, near(2.4)));
}

TEST(LinePatternFit, SharesTheSlackOfALoopAmongAllGaps) {
  EXPECT_THAT(fitted({4, 2}, {.pathLength = 100, .pathLoops = true}), ElementsAre(4, near(2.25)));
}

TEST(LinePatternFit, GivesAnOddPatternTheRoomOfItsCaps) {
  LinePatternFit fit{.pathLength = 100, .pathLoops = true, .cap = CGLineCap::round, .lineWidth = 2};
  const CGFloat slack = 100.0 / 14 - 7;
  EXPECT_THAT(fitted({5}, fit), ElementsAre(5, near(2 + slack)));
  fit.modification = Modification::resizePatternDashes;
  EXPECT_THAT(fitted({5}, fit), ElementsAre(near(5 + slack))) << "nothing is appended";
  fit.cap = CGLineCap::butt;
  fit.modification = Modification::resizeSpaceBetweenPatterns;
  EXPECT_THAT(fitted({5}, fit), ElementsAre(5, near(0))) << "butt caps take no room";
}

TEST(LinePatternFit, MakesZeroLengthsVisibleButKeepsTheTrailingSpaceAsGiven) {
  // 33 periods of 3.01, 32 gaps that share what is left.
  const CGFloat slack = (100 - (33 * 3.01 - 3)) / 32;
  EXPECT_THAT(fitted({0, 3}, {.pathLength = 100}), ElementsAre(0.01, near(3 + slack)));
  const Pattern noSpace = fitted({4, 0}, {.pathLength = 100, .pathLoops = true});
  EXPECT_THAT(noSpace, ElementsAre(4, near(100.0 / 24 - 4.01))) << "the slack is added to 0, not to 0.01";
}

TEST(LinePatternFit, TakesACountOnlyToLowerTheNumberOfPatterns) {
  LinePatternFit fit{.pathLength = 60, .pathLoops = true, .count = 3};
  EXPECT_THAT(fitted({4, 2}, fit), ElementsAre(4, near(16)));
  fit.count = 20;
  EXPECT_THAT(fitted({4, 2}, fit), ElementsAre(4, near(2)));
}

TEST(LinePatternFit, LeavesAPatternAloneWhereNoneFits) {
  EXPECT_THAT(fitted({0, 30}, {.pathLength = 29}), ElementsAre(0, 30)) << "its zeros too";
  EXPECT_THAT(fitted({0, 3}, {.pathLength = 90, .count = 0}), ElementsAre(0, 3));
  EXPECT_THAT(fitted({4, 2}, {.pathLength = 90, .count = -5}), ElementsAre(4, 2));
  EXPECT_THAT(fitted({4, 2}, {.pathLength = -90}), ElementsAre(4, 2));
  EXPECT_THAT(fitted({-4, 2}, {.pathLength = 90}), ElementsAre(-4, 2));
  EXPECT_THAT(fitted({NAN, 2}, {.pathLength = 90}), ElementsAre(testing::IsNan(), 2));
  EXPECT_THAT(fitted({}, {.pathLength = 90}), ElementsAre());
}

TEST(LinePatternFit, HasNothingToStretchInASingleDashWithoutSpaces) {
  const LinePatternFit fit{.modification = Modification::resizePatternSpaces, .pathLength = 12};
  EXPECT_THAT(fitted({5}, fit), ElementsAre(5));
}

TEST(LinePatternFit, DividesByTheMissingGapOfASinglePattern) {
  EXPECT_THAT(fitted({4, 2}, {.pathLength = 7}), ElementsAre(4, infinity));
  EXPECT_THAT(fitted({4, 0}, {.pathLength = 4.01}), ElementsAre(4, testing::IsNan())) << "no slack at all";
  EXPECT_THAT(fitted({5}, {.pathLength = 8}), ElementsAre(5, infinity));
  EXPECT_THAT(fitted({4, 2}, {.pathLength = 90, .count = 1}), ElementsAre(4, infinity));
}

// Misuse

TEST(LinePatternFit, StopsAtANumberOfPatternsOutOfRange) {
  const std::string trapped;
  EXPECT_EQ(stopLine([] { (void)fitted({4, 2}, {.pathLength = infinity}); }), trapped);
  EXPECT_EQ(stopLine([] { (void)fitted({4, 2}, {.pathLength = NAN}); }), trapped);
  EXPECT_EQ(stopLine([] { (void)fitted({4, 2}, {.pathLength = 1e300}); }), trapped);
  EXPECT_EQ(stopLine([] {
              (void)fitted({4, 2}, {.pathLength = 1e300, .count = 3});
            }),
            trapped)
      << "the count does not excuse it";
}

TEST(LinePatternFit, DoesNotFitWithoutAModification) {
  const auto fit = [](CGFloat length) {
    return [length] { (void)fitted({4, 2}, {.modification = Modification::none, .pathLength = length}); };
  };
  EXPECT_THAT(stopLine(fit(100)), Optional(StartsWith("Fatal error: file BrenvikUIKit/BKUKShape,")));
  EXPECT_EQ(stopLine(fit(1)), std::nullopt) << "where no pattern fits, none is stretched";
}

}  // namespace
}  // namespace bkuk
