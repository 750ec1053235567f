#pragma once

#include "BrenvikUIKit/drawing/BKUKShapeLayer.h"
#include "platform/appkit/NSView.h"

namespace bkuk {

class NSCoder;

/// A view that shows a shape: its layer is a shape layer. The layer does not mask to its bounds.
class BKUKShapeView : public NSView {
 public:
  /// Both may be absent. The radius is computed when the layer displays.
  explicit BKUKShapeView(Ref<NSColor> backgroundColor = nullptr,
                         BKUKShape::ComputableLength cornerRadius = {});
  /// Not supported: it stops the process.
  [[noreturn]] static Ref<BKUKShapeView> decoded(NSCoder& coder);

  [[nodiscard]] const Ref<BKUKShapeLayer>& shapeLayer();
  [[nodiscard]] const Ref<BKUKShape>& shape() { return shapeLayer()->shape(); }
  /// Moves the shape layer to another layer, as its last sublayer and in its size.
  void addShapeLayerInto(CALayer& layer);

  [[nodiscard]] Ref<CALayer> makeBackingLayer() override;
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  /// Gives the layer the colours of this moment. Called when the appearance changes and when the view enters
  /// a window; a display pass updates the shape only.
  void updateLayer() override;
  void viewDidChangeEffectiveAppearance() override;
  [[nodiscard]] std::string className() const override { return "BKUKShapeView"; }

 protected:
  void didInit() override;

 private:
  void applyBackground();

  Ref<NSColor> backgroundColor_;
  BKUKShape::ComputableLength cornerRadius_;
  Ref<BKUKShapeLayer> shapeLayer_;
};

}  // namespace bkuk
