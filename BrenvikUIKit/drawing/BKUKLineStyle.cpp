#include "BrenvikUIKit/drawing/BKUKLineStyle.h"

#include <tuple>
#include <utility>

#include "BrenvikUIKit/drawing/ColorEquality.h"

namespace bkuk {

namespace {

auto withoutColors(const BKUKLineStyle& style) {
  return std::tie(style.width, style.cap, style.pattern, style.phase, style.enablePatternCorrection,
                  style.patternModification, style.patternCount, style.shadowOffset, style.shadowRadius,
                  style.shadowOpacity);
}

}  // namespace

void BKUKLineStyle::setStroke(Ref<NSColor> strokeColor, CGFloat strokeWidth, CGLineCap lineCap,
                              std::optional<std::vector<CGFloat>> linePattern, CGFloat patternPhase,
                              BKUKLinePatternModification modification, std::optional<std::int64_t> count) {
  color = std::move(strokeColor);
  width = strokeWidth;
  cap = lineCap;
  pattern = std::move(linePattern);
  phase = patternPhase;
  patternModification = modification;
  patternCount = count;
}

void BKUKLineStyle::setShadow(Ref<NSColor> colorOfShadow, CGSize offset, CGFloat radius, CGFloat opacity) {
  shadowColor = std::move(colorOfShadow);
  shadowOffset = offset;
  shadowRadius = radius;
  shadowOpacity = opacity;
}

bool BKUKLineStyle::operator==(const BKUKLineStyle& other) const {
  return areEqual(color, other.color) && areEqual(shadowColor, other.shadowColor) &&
         withoutColors(*this) == withoutColors(other);
}

}  // namespace bkuk
