#pragma once

#include "platform/coregraphics/CGPath.h"

namespace bkuk {

/// A path under construction. Each call maps its points by `transform` before it appends them.
///
/// A line or curve needs a current point: without one it is a fatal error. After a close the next line or
/// curve starts at the start of the closed subpath, with a move that need not be written.
class CGMutablePath final : public CGPath {
 public:
  CGMutablePath() = default;
  explicit CGMutablePath(const CGPath& path);

  void move(CGPoint to, const CGAffineTransform& transform = {});
  void addLine(CGPoint to, const CGAffineTransform& transform = {});
  void addQuadCurve(CGPoint to, CGPoint control, const CGAffineTransform& transform = {});
  void addCurve(CGPoint to, CGPoint control1, CGPoint control2, const CGAffineTransform& transform = {});
  /// Ignored without a current point.
  void closeSubpath();

  /// Angles in radians from the positive x axis; `clockwise` as seen with y up. The arc begins with a line
  /// from the current point, or with a move when there is none, and is left open.
  void addArc(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle, bool clockwise,
              const CGAffineTransform& transform = {});
  void addRect(const CGRect& rect, const CGAffineTransform& transform = {});
  void addEllipse(const CGRect& rect, const CGAffineTransform& transform = {});
  /// Corner radii above half the side are cut to half, negative ones to 0.
  void addRoundedRect(const CGRect& rect, CGFloat cornerWidth, CGFloat cornerHeight,
                      const CGAffineTransform& transform = {});
  void addPath(const CGPath& path, const CGAffineTransform& transform = {});

  /// Elements of another path, which must begin with a move where there is no current point.
  void addElements(std::span<const CGPathElement> elements, const CGAffineTransform& transform = {});

  /// Makes the path empty and keeps its memory for what is built next.
  void removeAll();

  [[nodiscard]] std::string className() const override { return "CGMutablePath"; }

 private:
  [[nodiscard]] bool isMutable() const override { return true; }
  void append(CGPathElementType type, std::initializer_list<CGPoint> points,
              const CGAffineTransform& transform);
  void beginArc(CGPoint start, const CGAffineTransform& transform);
};

}  // namespace bkuk
