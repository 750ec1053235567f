#include "BrenvikUIKit/drawing/LinePatternFit.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

using Modification = BKUKLinePatternModification;

constexpr std::string_view unit = "BrenvikUIKit/BKUKShape";
constexpr CGFloat shortestElement = 0.01;  // points

/// The elements that take up the slack: every `step`th from `first` on.
struct Selection {
  std::size_t first;
  std::size_t step;
};

bool isOdd(std::size_t number) { return number % 2 != 0; }

CGFloat visibleLength(CGFloat element) { return element == 0 ? shortestElement : element; }

CGFloat trailingSpace(std::span<const CGFloat> pattern, const LinePatternFit& fit) {
  if (!isOdd(pattern.size())) return pattern.back();
  return fit.cap == CGLineCap::butt ? 0 : fit.lineWidth;
}

CGFloat visibleSum(std::span<const CGFloat> pattern) {
  CGFloat sum = 0;
  for (const CGFloat element : pattern) sum += visibleLength(element);
  return sum;
}

/// How many patterns of the length `period` go into the path.
std::int64_t patternCount(CGFloat period, const LinePatternFit& fit) {
  constexpr CGFloat limit = 0x1p63;
  const CGFloat fitting = std::floor(fit.pathLength / period);
  if (!(fitting >= -limit && fitting < limit)) {
    trap("BKUKShape: the line pattern has no usable length; give dashes and spaces above 0, or no pattern");
  }
  const auto whole = static_cast<std::int64_t>(fitting);
  return fit.count ? std::min(*fit.count, whole) : whole;
}

CGFloat slackPerPattern(std::int64_t count, CGFloat period, CGFloat space, const LinePatternFit& fit) {
  const bool dropsLastSpace = fit.modification == Modification::resizeSpaceBetweenPatterns && !fit.pathLoops;
  const auto patterns = static_cast<CGFloat>(count);
  const CGFloat gaps = dropsLastSpace ? patterns - 1 : patterns;
  const CGFloat dropped = dropsLastSpace ? space : 0;
  return (fit.pathLength - (period * patterns - dropped)) / gaps;
}

Selection selectionFor(Modification modification) {
  switch (modification) {
    case Modification::resizePatternDashes:
      return {0, 2};
    case Modification::resizePatternSpaces:
      return {1, 2};
    case Modification::resizeDashAndSpace:
      return {0, 1};
    case Modification::none:
    case Modification::resizeSpaceBetweenPatterns:
      break;
  }
  reportMistake("BKUKShape: a pattern that is not to change cannot be fitted");
  fatal("Fatal error", unit);
}

void stretchTrailingSpace(std::vector<CGFloat>& pattern, CGFloat space) {
  if (isOdd(pattern.size())) {
    pattern.push_back(space);
  } else {
    pattern.back() = space;
  }
}

void stretchSelected(std::vector<CGFloat>& pattern, Selection selection, CGFloat slack) {
  CGFloat selectedLength = 0;
  for (auto i = selection.first; i < pattern.size(); i += selection.step) selectedLength += pattern[i];
  for (auto i = selection.first; i < pattern.size(); i += selection.step) {
    pattern[i] += slack * (pattern[i] / selectedLength);
  }
}

std::vector<CGFloat> visiblePattern(std::span<const CGFloat> pattern) {
  std::vector<CGFloat> visible;
  visible.reserve(pattern.size() + 1);  // a trailing space may follow
  for (const CGFloat element : pattern) visible.push_back(visibleLength(element));
  return visible;
}

}  // namespace

std::vector<CGFloat> fittedLinePattern(std::span<const CGFloat> pattern, const LinePatternFit& fit) {
  const auto asGiven = [pattern] { return std::vector<CGFloat>(pattern.begin(), pattern.end()); };
  if (pattern.empty()) return asGiven();
  const CGFloat space = trailingSpace(pattern, fit);
  const CGFloat period = isOdd(pattern.size()) ? space + visibleSum(pattern) : visibleSum(pattern);
  if (!(period > 0)) return asGiven();
  const std::int64_t count = patternCount(period, fit);
  if (count < 1) return asGiven();
  const CGFloat slack = slackPerPattern(count, period, space, fit);
  auto fitted = visiblePattern(pattern);
  if (fit.modification == Modification::resizeSpaceBetweenPatterns) {
    stretchTrailingSpace(fitted, space + slack);
  } else {
    stretchSelected(fitted, selectionFor(fit.modification), slack);
  }
  return fitted;
}

}  // namespace bkuk
