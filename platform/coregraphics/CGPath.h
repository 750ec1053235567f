#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/coregraphics/CGAffineTransform.h"
#include "platform/coregraphics/CGLineStyle.h"
#include "platform/coregraphics/CGPathElement.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class CGMutablePath;

enum class CGPathFillRule { winding, evenOdd };

/// A sequence of subpaths. Immutable and shared, unless it is a `CGMutablePath`: who keeps a path that
/// somebody else may go on building keeps its `copy()`.
class CGPath : public NSObject {
 public:
  /// The empty path.
  CGPath() = default;

  [[nodiscard]] static Ref<CGPath> rect(const CGRect& rect);
  [[nodiscard]] static Ref<CGPath> ellipse(const CGRect& rect);
  /// Corner radii above half the side are cut to half.
  [[nodiscard]] static Ref<CGPath> roundedRect(const CGRect& rect, CGFloat cornerWidth, CGFloat cornerHeight);

  [[nodiscard]] std::span<const CGPathElement> elements() const { return elements_; }
  [[nodiscard]] bool isEmpty() const { return elements_.empty(); }
  /// Absent for the empty path. After a close it is the start of the closed subpath.
  [[nodiscard]] std::optional<CGPoint> currentPoint() const;

  /// With the control points of curves; null for the empty path.
  [[nodiscard]] CGRect boundingBox() const;
  /// Of the path itself; null for the empty path.
  [[nodiscard]] CGRect boundingBoxOfPath() const;
  /// Whether the filled path covers `point`, which is mapped by `transform` first. Open subpaths count as
  /// closed.
  [[nodiscard]] bool contains(CGPoint point, CGPathFillRule rule = CGPathFillRule::winding,
                              const CGAffineTransform& transform = {}) const;
  /// Calls `block` with every element in order.
  void applyWithBlock(const std::function<void(const CGPathElement&)>& block) const;

  /// The path itself when nobody can change it.
  [[nodiscard]] Ref<CGPath> copy() const;
  [[nodiscard]] Ref<CGPath> copy(const CGAffineTransform& transform) const;
  [[nodiscard]] Ref<CGMutablePath> mutableCopy() const;

  /// The dashes of this path as open subpaths, cut along its arc length. `lengths` begin with a dash, an
  /// odd number counts as written twice, negative ones count as 0. Every subpath starts `phase` into the
  /// pattern. An infinite length runs to the end of the subpath. Without lengths, with a NaN among them or a
  /// sum of 0 or less the copy is undashed.
  ///
  /// A dash of no length becomes one too short to see, so that it has a direction for its caps. Work is
  /// bounded: a pattern that would cut the path into more than 131,072 pieces is applied in a whole multiple
  /// of its size.
  [[nodiscard]] Ref<CGPath> copyDashingWithPhase(CGFloat phase, std::span<const CGFloat> lengths) const;

  /// The outline that covers, filled by the winding rule, what a stroke with these settings covers. The
  /// path is mapped by `transform` first. Empty when the width is not positive.
  ///
  /// A subpath without length, a point with a line to itself or one that is closed, shows its caps only: a
  /// dot, or a square along the axes; nothing with butt caps.
  [[nodiscard]] Ref<CGPath> copyStrokingWithWidth(CGFloat width, CGLineCap cap, CGLineJoin join,
                                                  CGFloat miterLimit,
                                                  const CGAffineTransform& transform = {}) const;

  /// The part of the path between two fractions of its whole length, both cut to 0…1; empty when they leave
  /// nothing. A subpath that survives whole stays closed.
  [[nodiscard]] Ref<CGPath> copyTrimming(CGFloat startFraction, CGFloat endFraction) const;
  /// The arc length of all subpaths, closing lines included.
  [[nodiscard]] CGFloat length() const;

  /// Equal element by element.
  bool operator==(const CGPath& other) const { return elements_ == other.elements_; }
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override;
  [[nodiscard]] std::string className() const override { return "CGPath"; }

 protected:
  explicit CGPath(std::vector<CGPathElement> elements) : elements_(std::move(elements)) {}

  std::vector<CGPathElement> elements_;

 private:
  template <typename Build>
  [[nodiscard]] static Ref<CGPath> built(Build build);
  [[nodiscard]] virtual bool isMutable() const { return false; }
};

}  // namespace bkuk
