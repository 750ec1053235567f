#pragma once

#include "platform/appkit/NSView.h"

namespace bkuk::bench {

/// A bar of rounded layers, filled to a share between 0 and 1.
class ProgressBar : public NSView {
 public:
  explicit ProgressBar(double share) : share_(share) {}

  [[nodiscard]] NSSize intrinsicContentSize() const override;
  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override;
  void layout() override;

 protected:
  void didInit() override;
  void didMakeBackingLayer() override;

 private:
  void placeFilledPart();

  const double share_;
  Ref<CALayer> filled_;  // with the view's own layer
};

}  // namespace bkuk::bench
