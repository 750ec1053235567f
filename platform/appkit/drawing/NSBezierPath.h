#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/coregraphics/CGMutablePath.h"
#include "platform/foundation/NSGeometry.h"

namespace bkuk {

enum class NSBezierPathElement : std::uint8_t { moveTo = 0, lineTo = 1, curveTo = 2, closePath = 3 };
enum class NSWindingRule : std::uint8_t { nonZero = 0, evenOdd = 1 };
enum class NSLineCapStyle : std::uint8_t { butt = 0, round = 1, square = 2 };
enum class NSLineJoinStyle : std::uint8_t { miter = 0, round = 1, bevel = 2 };

/// A path together with how it is filled and stroked. It draws into the current graphics context with its
/// current colours; without a context, drawing does nothing.
///
/// A line or curve without a point to start from is a fatal error. Main thread only.
class NSBezierPath final : public NSObject {
 public:
  /// The empty path.
  NSBezierPath();

  /// Closed paths. Corner radii above half the side are cut to half.
  [[nodiscard]] static Ref<NSBezierPath> rect(const NSRect& rect);
  [[nodiscard]] static Ref<NSBezierPath> ovalIn(const NSRect& rect);
  [[nodiscard]] static Ref<NSBezierPath> roundedRect(const NSRect& rect, CGFloat xRadius, CGFloat yRadius);

  // Building

  void move(NSPoint to);
  void line(NSPoint to);
  void curve(NSPoint to, NSPoint controlPoint1, NSPoint controlPoint2);
  /// The next line or curve starts where the closed subpath did. Ignored where there is nothing to close.
  void close();
  /// Adds an arc, behind a line from the current point if there is one. Angles are in degrees from the
  /// positive x axis, rising unless `clockwise`; an end on the other side is moved by whole turns.
  void appendArc(NSPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                 bool clockwise = false);
  void append(const NSBezierPath& path);
  void removeAllPoints() { path_->removeAll(); }

  /// Maps every point.
  void transform(const CGAffineTransform& transform);

  // Reading

  [[nodiscard]] bool isEmpty() const { return path_->isEmpty(); }
  [[nodiscard]] std::size_t elementCount() const { return path_->elements().size(); }
  /// An index beyond the end is a fatal error.
  [[nodiscard]] NSBezierPathElement element(std::size_t index) const;
  /// Writes the element's points too, control points first: one of a move or line, three of a curve.
  NSBezierPathElement element(std::size_t index, std::span<NSPoint, 3> points) const;
  /// Of an empty path it is a fatal error.
  [[nodiscard]] NSPoint currentPoint() const;

  /// The box around the path itself, and with the control points of its curves; zero for the empty path.
  [[nodiscard]] NSRect bounds() const;
  [[nodiscard]] NSRect controlPointBounds() const;
  /// Whether the filled path covers the point.
  [[nodiscard]] bool contains(NSPoint point) const;

  // Style

  [[nodiscard]] NSWindingRule windingRule() const { return windingRule_; }
  void setWindingRule(NSWindingRule rule) { windingRule_ = rule; }
  /// Points.
  [[nodiscard]] CGFloat lineWidth() const { return lineWidth_; }
  void setLineWidth(CGFloat width) { lineWidth_ = width; }
  [[nodiscard]] NSLineCapStyle lineCapStyle() const { return lineCapStyle_; }
  void setLineCapStyle(NSLineCapStyle style) { lineCapStyle_ = style; }
  [[nodiscard]] NSLineJoinStyle lineJoinStyle() const { return lineJoinStyle_; }
  void setLineJoinStyle(NSLineJoinStyle style) { lineJoinStyle_ = style; }
  [[nodiscard]] CGFloat miterLimit() const { return miterLimit_; }
  void setMiterLimit(CGFloat limit) { miterLimit_ = limit; }
  /// How far a drawn curve may be from the true one, in device pixels. A hint, kept for the reader.
  [[nodiscard]] CGFloat flatness() const { return flatness_; }
  void setFlatness(CGFloat flatness) { flatness_ = flatness; }
  /// Lengths of dashes and gaps in turn, dash first; none for a solid line.
  [[nodiscard]] std::span<const CGFloat> lineDash() const { return dashLengths_; }
  [[nodiscard]] CGFloat lineDashPhase() const { return dashPhase_; }
  void setLineDash(std::span<const CGFloat> lengths, CGFloat phase);

  // Drawing

  void fill() const;
  void stroke() const;
  /// Intersects the context's clip with the filled path.
  void addClip() const;

  [[nodiscard]] std::string className() const override { return "NSBezierPath"; }

 private:
  [[nodiscard]] const CGPathElement& checkedElement(std::size_t index) const;
  [[nodiscard]] CGPathFillRule fillRule() const;
  void requireCurrentPoint() const;

  Ref<CGMutablePath> path_;
  std::vector<CGFloat> dashLengths_;
  CGFloat dashPhase_ = 0;
  CGFloat lineWidth_ = 1;
  CGFloat miterLimit_ = 10;
  CGFloat flatness_ = 0.6;
  NSWindingRule windingRule_ = NSWindingRule::nonZero;
  NSLineCapStyle lineCapStyle_ = NSLineCapStyle::butt;
  NSLineJoinStyle lineJoinStyle_ = NSLineJoinStyle::miter;
};

}  // namespace bkuk
