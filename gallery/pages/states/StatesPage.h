#pragma once

#include "gallery/GalleryPage.h"
#include "gallery/cards/Specimen.h"
#include "gallery/chrome/Button.h"
#include "gallery/chrome/LogCard.h"

namespace bkuk::gallery {

/// A stateful view to play with, one held in each state, and what the first tells its delegate.
class StatesPage : public GalleryPage, public BKUKStatefulViewDelegate {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

  void stateChanged(BKUKInteractionState state, BKUKStatefulView& sender) override;

 protected:
  void didInit() override;

 private:
  void makeLive();
  void makeOptions();
  void makeHeld();

  Ref<TextLabel> liveHeading_;
  Ref<Button> live_;
  std::vector<Ref<Button>> options_;
  Ref<LogCard> log_;
  Ref<TextLabel> heldHeading_;
  std::vector<Ref<Specimen>> held_;
  int actions_ = 0;
};

}  // namespace bkuk::gallery
