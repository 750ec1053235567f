#include "gallery/pages/label/WavyUnderline.h"

#include <algorithm>

namespace bkuk::gallery {

namespace {

constexpr CGFloat halfWave = 3;   // points along the line
constexpr CGFloat amplitude = 2;  // points up and down
constexpr CGFloat belowBaseline = 3.5;

}  // namespace

void WavyUnderline::drawUnderline(const Ref<NSFont>& font, const Ref<NSColor>& color, NSRect rect) {
  const CGFloat descent = font ? -font->descender() : 0;
  const CGFloat middle = rect.maxY() - descent + belowBaseline;
  const auto path = make<NSBezierPath>();
  path->move({rect.minX(), middle});
  CGFloat side = amplitude;
  for (CGFloat x = rect.minX(); x < rect.maxX(); x += halfWave) {
    const CGFloat end = std::min(x + halfWave, rect.maxX());
    const CGFloat center = (x + end) / 2;
    path->curve({end, middle}, {center, middle + side}, {center, middle + side});
    side = -side;
  }
  (color ? color : BKUKTheme::critical())->setStroke();
  path->setLineWidth(1.25);
  path->stroke();
}

}  // namespace bkuk::gallery
