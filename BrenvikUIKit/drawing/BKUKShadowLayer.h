#pragma once

#include "BrenvikUIKit/drawing/BKUKShadowType.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/coregraphics/CGPath.h"
#include "platform/quartzcore/CALayer.h"

namespace bkuk {

/// Draws the shadow of a path without the path: outside of its edge or inside of it. Nothing is drawn beyond
/// the bounds, so that an outer shadow needs a layer that is larger than its path.
///
/// Path, offset and radius are in the bounds space, the offset with y up; all of them are drawn to the scale
/// at which the bounds show in the frame. Whoever adds the layer gives it the `contentsScale` of its window.
/// Colour, radius, offset and opacity answer to the keys "_color", "_radius", "_offset" and "_opacity", by
/// which they can be animated.
class BKUKShadowLayer : public CALayer {
 public:
  BKUKShadowLayer();
  /// The copy that shows `model` as it is animated now.
  BKUKShadowLayer(const BKUKShadowLayer& model) = default;

  [[nodiscard]] BKUKShadowType clipShadowType() const { return type_; }
  void setClipShadowType(BKUKShadowType type);
  /// No path, no shadow.
  [[nodiscard]] const Ref<CGPath>& clipShadowPath() const { return path_; }
  void setClipShadowPath(const Ref<CGPath>& path);
  /// Black at first; without a colour there is no shadow. What it is when the layer displays is what is
  /// drawn.
  [[nodiscard]] const Ref<NSColor>& clipShadowColor() const { return color_; }
  void setClipShadowColor(Ref<NSColor> color);
  [[nodiscard]] CGFloat clipShadowRadius() const { return radius_; }
  void setClipShadowRadius(CGFloat radius);
  [[nodiscard]] CGSize clipShadowOffset() const { return offset_; }
  void setClipShadowOffset(CGSize offset);
  /// 0 at first, which draws nothing.
  [[nodiscard]] CGFloat clipShadowOpacity() const { return opacity_; }
  void setClipShadowOpacity(CGFloat opacity);

  // Kept for the layer's owner.
  [[nodiscard]] const CGRect& shadowFrame() const { return shadowFrame_; }
  void setShadowFrame(const CGRect& frame) { shadowFrame_ = frame; }
  [[nodiscard]] const CGRect& roundedFrame() const { return roundedFrame_; }
  void setRoundedFrame(const CGRect& frame) { roundedFrame_ = frame; }

  [[nodiscard]] bool needsDisplay(std::string_view key) const override;
  using CALayer::needsDisplay;
  void draw(CGContext& context) override;
  [[nodiscard]] CAValue value(std::string_view key) const override;
  void setValue(const CAValue& value, std::string_view key) override;
  [[nodiscard]] std::string className() const override { return "BKUKShadowLayer"; }

 protected:
  [[nodiscard]] Ref<CALayer> makePresentationCopy() const override { return presentationCopyOf(*this); }

 private:
  void drawOuter(CGContext& context, CGSize scale) const;
  void drawInner(CGContext& context, CGSize scale) const;
  void castShadow(CGContext& context, CGSize scale, const CGPath& caster) const;

  BKUKShadowType type_ = BKUKShadowType::outer;
  Ref<CGPath> path_;
  Ref<NSColor> color_ = NSColor::black();
  CGFloat radius_ = 0;
  CGSize offset_;
  CGFloat opacity_ = 0;
  CGRect shadowFrame_;
  CGRect roundedFrame_;
};

}  // namespace bkuk
