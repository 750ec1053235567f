#pragma once

#include <optional>

#include "platform/coregraphics/CGPath.h"
#include "platform/quartzcore/CALayer.h"

namespace bkuk {

inline constexpr std::string_view kCAFillRuleNonZero = "non-zero";
inline constexpr std::string_view kCAFillRuleEvenOdd = "even-odd";
inline constexpr std::string_view kCALineCapButt = "butt";
inline constexpr std::string_view kCALineCapRound = "round";
inline constexpr std::string_view kCALineCapSquare = "square";
inline constexpr std::string_view kCALineJoinMiter = "miter";
inline constexpr std::string_view kCALineJoinRound = "round";
inline constexpr std::string_view kCALineJoinBevel = "bevel";

/// A layer that shows a path, filled and then stroked, above its background. The path lies in the bounds
/// space and is not cut to the bounds. Unknown names of rules, caps and joins count as the default ones.
class CAShapeLayer : public CALayer {
 public:
  CAShapeLayer();
  CAShapeLayer(const CAShapeLayer& model) = default;

  /// None at first. Without an implicit animation.
  [[nodiscard]] const Ref<CGPath>& path() const { return path_; }
  void setPath(const Ref<CGPath>& path);

  /// Opaque black at first. Open subpaths are filled as if closed.
  [[nodiscard]] const Ref<CGColor>& fillColor() const { return fillColor_; }
  void setFillColor(Ref<CGColor> color);
  [[nodiscard]] const std::string& fillRule() const { return fillRule_; }
  void setFillRule(std::string_view rule);

  /// None at first.
  [[nodiscard]] const Ref<CGColor>& strokeColor() const { return strokeColor_; }
  void setStrokeColor(Ref<CGColor> color);
  [[nodiscard]] CGFloat lineWidth() const { return lineWidth_; }
  void setLineWidth(CGFloat width);
  [[nodiscard]] const std::string& lineCap() const { return lineCap_; }
  void setLineCap(std::string_view cap);
  [[nodiscard]] const std::string& lineJoin() const { return lineJoin_; }
  void setLineJoin(std::string_view join);
  [[nodiscard]] CGFloat miterLimit() const { return miterLimit_; }
  void setMiterLimit(CGFloat limit);

  /// The part of the whole path's length that is stroked, in fractions; cut to 0…1 when it is painted.
  [[nodiscard]] CGFloat strokeStart() const { return strokeStart_; }
  void setStrokeStart(CGFloat fraction);
  [[nodiscard]] CGFloat strokeEnd() const { return strokeEnd_; }
  void setStrokeEnd(CGFloat fraction);

  /// Dash first, in points; kept exactly as set. It is painted as by `CGPath::copyDashingWithPhase` and
  /// starts where the stroked part starts.
  [[nodiscard]] const std::optional<std::vector<CGFloat>>& lineDashPattern() const { return dashPattern_; }
  void setLineDashPattern(const std::optional<std::vector<CGFloat>>& pattern);
  [[nodiscard]] CGFloat lineDashPhase() const { return dashPhase_; }
  void setLineDashPhase(CGFloat phase);

  [[nodiscard]] CAValue value(std::string_view key) const override;
  void setValue(const CAValue& value, std::string_view key) override;
  [[nodiscard]] Ref<CAAction> defaultAction(std::string_view key) const override;
  [[nodiscard]] std::string className() const override { return "CAShapeLayer"; }

 protected:
  [[nodiscard]] Ref<CALayer> makePresentationCopy() const override { return presentationCopyOf(*this); }
  void paint(CGContext& context) const override;
  [[nodiscard]] CGRect paintedBox() const override;

 private:
  [[nodiscard]] bool strokes() const;
  [[nodiscard]] CGFloat strokeReach() const;
  [[nodiscard]] Ref<CGPath> strokedPath() const;

  Ref<CGPath> path_;
  CGRect pathBox_ = CGRect::null;
  Ref<CGColor> fillColor_;
  Ref<CGColor> strokeColor_;
  std::string fillRule_{kCAFillRuleNonZero};
  std::string lineCap_{kCALineCapButt};
  std::string lineJoin_{kCALineJoinMiter};
  std::optional<std::vector<CGFloat>> dashPattern_;
  CGFloat lineWidth_ = 1;
  CGFloat miterLimit_ = 10;
  CGFloat strokeStart_ = 0;
  CGFloat strokeEnd_ = 1;
  CGFloat dashPhase_ = 0;
};

}  // namespace bkuk
