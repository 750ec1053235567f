#pragma once

#include "gallery/chrome/Box.h"

namespace bkuk::gallery {

/// A rounded plate with its shadow outside or inside of its edge.
class ShadowSample : public NSView {
 public:
  struct Shadow {
    BKUKShadowType type = BKUKShadowType::outer;
    Color color;
    CGFloat radius = 0;  ///< points
    CGSize offset;       ///< points, y up
    CGFloat opacity = 1;
  };

  /// `corner` is the plate's.
  ShadowSample(Ref<BKUKFillView> plate, BKUKCornerSettings corner, Shadow shadow);

  void layout() override;
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override;
  void viewDidChangeBackingProperties() override;

 protected:
  void didInit() override;

 private:
  Ref<BKUKFillView> plate_;
  BKUKCornerSettings corner_;
  Shadow shadow_;
  Ref<BKUKShadowLayer> shadowLayer_;
};

}  // namespace bkuk::gallery
