#include "platform/appkit/text/UnderlineDrawing.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/coregraphics/CGBaseline.h"
#include "platform/coregraphics/CGContext.h"

namespace bkuk {

namespace {

// Lengths of the dashes and of what is between them, in thicknesses.
std::vector<CGFloat> dashes(NSUnderlineStyle pattern) {
  switch (pattern) {
    case NSUnderlineStyle::patternDot:
      return {1, 2};
    case NSUnderlineStyle::patternDash:
      return {4, 2};
    case NSUnderlineStyle::patternDashDot:
      return {4, 2, 1, 2};
    case NSUnderlineStyle::patternDashDotDot:
      return {4, 2, 1, 2, 1, 2};
    default:
      return {};
  }
}

/// How tall things are on the device. Text that is turned has no rows to lie on.
struct Rows {
  explicit Rows(const CGContext& context) : transform(context.userSpaceToDeviceSpaceTransform()) {}

  [[nodiscard]] bool isStraight() const { return transform.b == 0 && transform.c == 0 && transform.d != 0; }
  [[nodiscard]] CGFloat pixel() const { return isStraight() ? 1 / std::abs(transform.d) : 0; }
  [[nodiscard]] CGFloat snapped(CGFloat y) const {
    if (!isStraight()) return y;
    return (CGSnappedBaseline(transform.d * y + transform.ty) - transform.ty) / transform.d;
  }
  // A distance of whole pixels, one at least.
  [[nodiscard]] CGFloat whole(CGFloat distance) const {
    if (!isStraight()) return distance;
    return std::max(1.0, std::round(distance / pixel())) * pixel();
  }

  CGAffineTransform transform;
};

}  // namespace

void drawUnderlineStrokes(CGContext& context, NSUnderlineStyle style, const NSFont& font, CGFloat left,
                          CGFloat right, CGFloat baseline, const Ref<CGColor>& color) {
  const auto stroke = underlineStroke(style);
  if (stroke == NSUnderlineStyle::none || right <= left) return;
  const Rows rows(context);
  const bool isThick = stroke == NSUnderlineStyle::thick;
  const CGFloat thickness = rows.whole(font.underlineThickness() * (isThick ? 2 : 1));
  // The font's position is the middle of a single stroke.
  const CGFloat offset = rows.whole(-font.underlinePosition() - font.underlineThickness() / 2);
  const CGFloat top = rows.snapped(baseline) + offset;
  context.saveGState();
  context.setStrokeColor(color);
  context.setLineWidth(thickness);
  auto lengths = dashes(underlinePattern(style));
  for (auto& length : lengths) length *= thickness;
  context.setLineDash(0, lengths);
  for (int i = 0; i < (stroke == NSUnderlineStyle::double_ ? 2 : 1); ++i) {
    const CGFloat middle = top + thickness / 2 + 2 * thickness * i;
    context.move({left, middle});
    context.addLine({right, middle});
    context.strokePath();
  }
  context.restoreGState();
}

}  // namespace bkuk
