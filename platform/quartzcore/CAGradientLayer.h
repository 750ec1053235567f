#pragma once

#include <optional>

#include "platform/quartzcore/CALayer.h"

namespace bkuk {

class CGGradient;

inline constexpr std::string_view kCAGradientLayerAxial = "axial";
inline constexpr std::string_view kCAGradientLayerRadial = "radial";
inline constexpr std::string_view kCAGradientLayerConic = "conic";

/// A layer that shows a gradient over its whole bounds, above its background and rounded like it.
///
/// Start and end are points of the unit square that stands for the bounds: (0, 0) is minX and minY. They may
/// lie outside it. An unknown type counts as axial.
class CAGradientLayer : public CALayer {
 public:
  using Colors = std::vector<Ref<CGColor>>;

  CAGradientLayer() = default;
  CAGradientLayer(const CAGradientLayer& model) = default;

  /// None at first, which paints nothing; a single colour is painted as it is.
  [[nodiscard]] const Colors& colors() const { return colors_; }
  void setColors(const Colors& colors);
  /// 0 to 1 for each colour; none spreads them evenly.
  [[nodiscard]] const std::optional<std::vector<CGFloat>>& locations() const { return locations_; }
  void setLocations(const std::optional<std::vector<CGFloat>>& locations);

  /// Axial: where the first colour lies, (0.5, 0) at first. Radial and conic: the centre.
  [[nodiscard]] CGPoint startPoint() const { return startPoint_; }
  void setStartPoint(CGPoint point);
  /// Axial: where the last colour lies, (0.5, 1) at first; colours change at right angles to the axis, in
  /// points. Radial: a corner of the box around the ellipse of the last colour. Conic: the direction in which
  /// the first and the last colour meet, from where the turn goes from x to y.
  [[nodiscard]] CGPoint endPoint() const { return endPoint_; }
  void setEndPoint(CGPoint point);
  [[nodiscard]] const std::string& type() const { return type_; }
  void setType(std::string_view type);

  [[nodiscard]] CAValue value(std::string_view key) const override;
  void setValue(const CAValue& value, std::string_view key) override;
  [[nodiscard]] Ref<CAAction> defaultAction(std::string_view key) const override;
  [[nodiscard]] std::string className() const override { return "CAGradientLayer"; }

 protected:
  [[nodiscard]] Ref<CALayer> makePresentationCopy() const override { return presentationCopyOf(*this); }
  void paint(CGContext& context) const override;
  [[nodiscard]] CGRect paintedBox() const override;
  [[nodiscard]] bool cutsPaintToBounds() const override { return true; }

 private:
  [[nodiscard]] CGPoint inBounds(CGPoint unit) const;
  void paintAxial(CGContext& context, const CGGradient& gradient) const;
  void paintRadial(CGContext& context, const CGGradient& gradient) const;
  void paintConic(CGContext& context, const CGGradient& gradient) const;

  Colors colors_;
  std::optional<std::vector<CGFloat>> locations_;
  CGPoint startPoint_{0.5, 0};
  CGPoint endPoint_{0.5, 1};
  std::string type_{kCAGradientLayerAxial};
};

}  // namespace bkuk
