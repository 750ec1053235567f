#include "platform/quartzcore/raster/BoxPath.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace bkuk {

namespace {

// The way around one corner of an outline.
struct Turn {
  CGPoint start;
  CGPoint control1;
  CGPoint control2;
  CGPoint end;

  // `inward`: from the corner into the box along x and along y; nothing for a square corner.
  Turn(CGPoint corner, CGSize inward, bool comesAlongY) {
    // The control length of a quarter circle's cubic.
    constexpr CGFloat control = 1 - 0.55228474983079339840;
    const auto along = [&](bool y, CGFloat fraction) {
      return y ? CGPoint{corner.x, corner.y + inward.height * fraction}
               : CGPoint{corner.x + inward.width * fraction, corner.y};
    };
    start = along(comesAlongY, 1);
    control1 = along(comesAlongY, control);
    control2 = along(!comesAlongY, control);
    end = along(!comesAlongY, 1);
  }

  [[nodiscard]] bool isRound() const { return start != end; }
  void reverse() {
    std::swap(start, end);
    std::swap(control1, control2);
  }
};

using Outline = std::array<Turn, 4>;

// At exactly one pixel painters of paths stand between a coarse and a fine way to flatten the curve and take
// the one here and the other there. A little less is always the fine one.
CGFloat awayFromOne(CGFloat radius) {
  constexpr CGFloat tooClose = 1e-6;
  return std::abs(radius - 1) < tooClose ? 1 - 1.0 / 1024 : radius;
}

CGSize cutToHalf(CGSize radius, const CGRect& rect) {
  if (!(radius.width > 0) || !(radius.height > 0)) return {};
  const auto factor = std::min({1.0, rect.width() / 2 / radius.width, rect.height() / 2 / radius.height});
  return {awayFromOne(radius.width * factor), awayFromOne(radius.height * factor)};
}

Outline outlineOf(const CGRect& rect, const BoxCorners& corners) {
  const auto radius = cutToHalf(corners.radius, rect);
  const auto inward = [&](int i, CGFloat x, CGFloat y) {
    return corners.isRound[i] ? CGSize{x * radius.width, y * radius.height} : CGSize{};
  };
  return {Turn({rect.minX(), rect.minY()}, inward(0, 1, 1), true),
          Turn({rect.maxX(), rect.minY()}, inward(1, -1, 1), false),
          Turn({rect.maxX(), rect.maxY()}, inward(2, -1, -1), true),
          Turn({rect.minX(), rect.maxY()}, inward(3, 1, -1), false)};
}

void append(CGMutablePath& path, const Outline& outline) {
  path.move(outline.front().start);
  for (const auto& turn : outline) {
    if (&turn != &outline.front()) path.addLine(turn.start);
    if (turn.isRound()) path.addCurve(turn.end, turn.control1, turn.control2);
  }
  path.closeSubpath();
}

CGRect rectOf(const RoundedBox& box) {
  return CGRect(box.rect.x, box.rect.y, box.rect.width, box.rect.height);
}

BoxCorners cornersOf(const RoundedBox& box) {
  return {{box.radius, box.radius},
          {(box.corners & upperLeft) != 0, (box.corners & upperRight) != 0, (box.corners & lowerRight) != 0,
           (box.corners & lowerLeft) != 0}};
}

}  // namespace

void addBox(CGMutablePath& path, const CGRect& rect, const BoxCorners& corners) {
  append(path, outlineOf(rect, corners));
}

void addBoxReversed(CGMutablePath& path, const CGRect& rect, const BoxCorners& corners) {
  auto outline = outlineOf(rect, corners);
  std::ranges::reverse(outline);
  for (auto& turn : outline) turn.reverse();
  append(path, outline);
}

Ref<CGPath> boxPath(const RoundedBox& box) {
  auto path = make<CGMutablePath>();
  addBox(*path, rectOf(box), cornersOf(box));
  return path;
}

Ref<CGPath> ringPath(const RoundedBox& box, int width) {
  auto path = make<CGMutablePath>();
  addBox(*path, rectOf(box), cornersOf(box));
  const auto inside = insideBorder(box, width);
  if (!inside.rect.isEmpty()) addBoxReversed(*path, rectOf(inside), cornersOf(inside));
  return path;
}

}  // namespace bkuk
