#pragma once

#include "BrenvikUIKit/drawing/BKUKShape.h"

namespace bkuk {

/// A shape layer whose geometry is computed from its bounds by its `shape`, whenever it displays.
///
/// A layer whose shape nobody asked for stays a plain shape layer. Changes animate only inside an animation
/// group that allows implicit animation, paths too.
class BKUKShapeLayer : public CAShapeLayer {
 public:
  BKUKShapeLayer() = default;
  /// The copy that shows `model` as it is animated now; it has no shape.
  BKUKShapeLayer(const BKUKShapeLayer& model) : CAShapeLayer(model) {}

  /// Made on first use, which takes away the layer's fill, makes it follow the size of its superlayer and
  /// display when its own changes.
  [[nodiscard]] const Ref<BKUKShape>& shape();
  /// From then on the shape drives this layer.
  void setShape(Ref<BKUKShape> shape);

  /// Updates the shape; makes no bitmap.
  void display() override;
  [[nodiscard]] Ref<CAAction> action(std::string_view key) override;
  /// Paths animate as well.
  [[nodiscard]] Ref<CAAction> defaultAction(std::string_view key) const override;
  [[nodiscard]] std::string className() const override { return "BKUKShapeLayer"; }

 protected:
  [[nodiscard]] Ref<CALayer> makePresentationCopy() const override { return presentationCopyOf(*this); }

 private:
  Ref<BKUKShape> shape_;
};

}  // namespace bkuk
