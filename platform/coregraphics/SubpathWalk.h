#pragma once

#include <span>

#include "platform/coregraphics/CubicCurve.h"

namespace bkuk {

/// Whether a subpath that is not closed gets the line back to its start.
enum class OpenSubpaths { leaveOpen, close };

/// Keeps track of the current point while a path's elements go by.
class SubpathPen {
 public:
  [[nodiscard]] CGPoint start() const { return start_; }
  [[nodiscard]] CGPoint current() const { return current_; }

  void advance(const CGPathElement& element) {
    if (element.type == CGPathElementType::closeSubpath) {
      current_ = start_;
      return;
    }
    current_ = element.points[pointCount(element.type) - 1];
    if (element.type == CGPathElementType::moveToPoint) start_ = current_;
  }

 private:
  CGPoint start_;
  CGPoint current_;
};

/// Calls `visit` with every line and curve of the path in order, lines that close subpaths included.
template <typename Visit>
void walkSubpaths(std::span<const CGPathElement> path, OpenSubpaths open, Visit visit) {
  SubpathPen pen;
  const auto closeHere = [&] {
    if (pen.current() != pen.start()) visit(CubicCurve::line(pen.current(), pen.start()));
  };
  for (const CGPathElement& element : path) {
    const bool moves = element.type == CGPathElementType::moveToPoint;
    const bool closes = element.type == CGPathElementType::closeSubpath;
    if (closes || (moves && open == OpenSubpaths::close)) closeHere();
    if (!moves && !closes) visit(CubicCurve::from(pen.current(), element));
    pen.advance(element);
  }
  if (open == OpenSubpaths::close) closeHere();
}

}  // namespace bkuk
