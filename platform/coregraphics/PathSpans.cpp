#include "platform/coregraphics/PathSpans.h"

#include <algorithm>
#include <cmath>

#include "platform/coregraphics/SubpathWalk.h"

namespace bkuk {

namespace {

// Boxes without width or height, as straight lines have, touch what they lie in.
bool touches(const CGRect& a, const CGRect& b) {
  return a.minX() <= b.maxX() && b.minX() <= a.maxX() && a.minY() <= b.maxY() && b.minY() <= a.maxY();
}

CGFloat extent(const CGRect& rect) { return rect.width() + rect.height(); }

struct Range {
  CGFloat from, to;
};

// Keeps the part of `range` where from + t · step lies between two bounds.
void narrow(Range& range, CGFloat origin, CGFloat step, CGFloat low, CGFloat high) {
  if (step == 0) {
    if (origin < low || origin > high) range = {1, 0};
    return;
  }
  const CGFloat a = (low - origin) / step;
  const CGFloat b = (high - origin) / step;
  range = {std::max(range.from, std::min(a, b)), std::min(range.to, std::max(a, b))};
}

Range visibleRange(const CubicCurve& line, const CGRect& visible) {
  Range range{0, 1};
  narrow(range, line.start.x, line.end.x - line.start.x, visible.minX(), visible.maxX());
  narrow(range, line.start.y, line.end.y - line.start.y, visible.minY(), visible.maxY());
  return range;
}

}  // namespace

PathSpans::PathSpans(std::span<const CGPathElement> path, const std::optional<CGRect>& visible)
    : visible_(visible) {
  SubpathPen pen;
  beginSubpath(0);
  for (std::size_t index = 0; index < path.size(); ++index) {
    const CGPathElement& element = path[index];
    if (element.type == CGPathElementType::closeSubpath) {
      if (pen.current() != pen.start()) add(CubicCurve::line(pen.current(), pen.start()));
      subpaths_.back().isClosed = true;
      endSubpath(index + 1);
      beginSubpath(index + 1);
    } else if (element.type == CGPathElementType::moveToPoint) {
      endSubpath(index);
      beginSubpath(index);
    } else {
      add(CubicCurve::from(pen.current(), element));
    }
    pen.advance(element);
  }
  endSubpath(path.size());
}

void PathSpans::beginSubpath(std::size_t element) {
  subpaths_.push_back({spans_.size(), spans_.size(), element, element, 0, false});
}

void PathSpans::endSubpath(std::size_t element) {
  Subpath& subpath = subpaths_.back();
  subpath.lastSpan = spans_.size();
  subpath.lastElement = element;
  length_ += subpath.length;
  if (subpath.firstSpan == subpath.lastSpan) subpaths_.pop_back();
}

void PathSpans::add(const CubicCurve& segment) {
  segments_.push_back(segment);
  if (segment.isLine) return addLineSpans(segment);
  addCurveSpans(segment, 0, 1, 0);
}

void PathSpans::addLineSpans(const CubicCurve& line) {
  const Range seen = visible_ ? visibleRange(line, *visible_) : Range{0, 1};
  if (!(seen.from < seen.to)) return addSpan(0, 1, false);
  if (seen.from > 0) addSpan(0, seen.from, false);
  addSpan(seen.from, seen.to, true);
  if (seen.to < 1) addSpan(seen.to, 1, false);
}

void PathSpans::addCurveSpans(const CubicCurve& curve, CGFloat from, CGFloat to, int depth) {
  constexpr int fineDepth = 4;
  constexpr int maxDepth = 24;
  const CGRect hull = curve.portion(from, to).hull();
  const bool isVisible = !visible_ || touches(hull, *visible_);
  const bool isLong = visible_ && isVisible && depth < maxDepth && extent(hull) > 4 * extent(*visible_);
  if (depth >= fineDepth && !isLong) return addSpan(from, to, isVisible);
  const CGFloat middle = (from + to) / 2;
  addCurveSpans(curve, from, middle, depth + 1);
  addCurveSpans(curve, middle, to, depth + 1);
}

void PathSpans::addSpan(CGFloat from, CGFloat to, bool isVisible) {
  const CGFloat length = segments_.back().length(from, to);
  spans_.push_back({segments_.size() - 1, from, to, length, isVisible});
  subpaths_.back().length += length;
  if (isVisible) visibleLength_ += length;
}

}  // namespace bkuk
