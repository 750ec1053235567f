#pragma once

#include "BrenvikUIKit/controls/BKUKTriggerView.h"
#include "gallery/GalleryPage.h"
#include "gallery/chrome/Slider.h"
#include "gallery/chrome/TextLabel.h"
#include "gallery/pages/trigger/PulseStrip.h"

namespace bkuk::gallery {

/// A stepper of two auto-repeating controls, the delays of their repetition, and when they fire.
class TriggerPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  /// A delay that a slider sets.
  struct Delay {
    Ref<TextLabel> name;
    Ref<Slider> slider;
  };

  Ref<BKUKTriggerView> makeTrigger(std::string title, std::string label, int step);
  Delay makeDelay(std::string name, Slider::Range range, CGFloat seconds,
                  void (BKUKTriggerView::*apply)(double));
  void step(int by);

  int number_ = 0;
  Ref<TextLabel> stepperHeading_;
  Ref<BKUKTriggerView> decrease_;
  Ref<BKUKTriggerView> increase_;
  Ref<TextLabel> numberLabel_;
  Ref<TextLabel> delayHeading_;
  std::vector<Delay> delays_;
  Ref<TextLabel> pulsesHeading_;
  Ref<PulseStrip> pulses_;
};

}  // namespace bkuk::gallery
