#include "platform/coregraphics/PathDots.h"

#include <algorithm>

namespace bkuk {

namespace {

using Elements = std::span<const CGPathElement>;

bool isMove(const CGPathElement& element) { return element.type == CGPathElementType::moveToPoint; }

bool staysAt(CGPoint point, const CGPathElement& element) {
  const auto* end = element.points + pointCount(element.type);
  return std::all_of(element.points, end, [&](CGPoint other) { return other == point; });
}

// Up to the next move; what follows a close without one belongs to it.
Elements firstSubpath(Elements path) {
  const auto next = std::find_if(path.begin() + 1, path.end(), isMove);
  return path.first(static_cast<std::size_t>(next - path.begin()));
}

bool isDot(Elements subpath) {
  if (subpath.size() < 2 || !isMove(subpath.front())) return false;
  const auto point = subpath.front().points[0];
  return std::ranges::all_of(subpath, [&](const auto& element) { return staysAt(point, element); });
}

}  // namespace

bool hasDots(Elements path) {
  for (; !path.empty(); path = path.subspan(firstSubpath(path).size())) {
    if (isDot(firstSubpath(path))) return true;
  }
  return false;
}

void appendWithOpenedDots(CGMutablePath& target, Elements path, CGFloat length) {
  while (!path.empty()) {
    const auto subpath = firstSubpath(path);
    path = path.subspan(subpath.size());
    if (!isDot(subpath)) {
      target.addElements(subpath);
      continue;
    }
    const auto point = subpath.front().points[0];
    target.move(point);
    target.addLine({point.x + length, point.y});
  }
}

}  // namespace bkuk
