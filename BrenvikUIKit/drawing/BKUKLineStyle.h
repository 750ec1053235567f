#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "BrenvikUIKit/drawing/BKUKLinePatternModification.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/coregraphics/CGLineStyle.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// How a line is stroked, with its dashes and its shadow. Lengths are in points.
struct BKUKLineStyle {
  Ref<NSColor> color{};  ///< absent for no stroke
  CGFloat width = 0;
  CGLineCap cap = CGLineCap::butt;
  std::optional<std::vector<CGFloat>> pattern{};  ///< dashes and spaces, dash first
  CGFloat phase = 0;                              ///< how far into the pattern the line starts
  bool enablePatternCorrection = true;            ///< kept for its owner; drawing does not depend on it
  BKUKLinePatternModification patternModification = BKUKLinePatternModification::resizeSpaceBetweenPatterns;
  std::optional<std::int64_t> patternCount{};  ///< at most so many patterns on the line
  Ref<NSColor> shadowColor{};
  CGSize shadowOffset{};
  CGFloat shadowRadius = 0;
  CGFloat shadowOpacity = 1;

  /// Whether there is a stroke to see: a colour and a width above 0.
  [[nodiscard]] bool isVisible() const { return width > 0 && color; }

  void setStroke(Ref<NSColor> strokeColor, CGFloat strokeWidth, CGLineCap lineCap,
                 std::optional<std::vector<CGFloat>> linePattern, CGFloat patternPhase,
                 BKUKLinePatternModification modification, std::optional<std::int64_t> count);
  void setShadow(Ref<NSColor> colorOfShadow, CGSize offset, CGFloat radius, CGFloat opacity);

  bool operator==(const BKUKLineStyle& other) const;
};

}  // namespace bkuk
