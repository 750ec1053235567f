#include "bench/peer/kit/ProgressBar.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "platform/quartzcore/CALayer.h"

namespace bkuk::bench {

NSSize ProgressBar::intrinsicContentSize() const { return {NSViewNoIntrinsicMetric, 6}; }

void ProgressBar::updateLayer() {
  layer()->setBackgroundColor(BKUKTheme::onBackgroundLight()->cgColor());
  layer()->setCornerRadius(bounds().height() / 2);
  filled_->setBackgroundColor(BKUKTheme::accent()->cgColor());
  filled_->setCornerRadius(bounds().height() / 2);
}

void ProgressBar::layout() {
  NSView::layout();
  placeFilledPart();
}

void ProgressBar::didInit() {
  NSView::didInit();
  setTranslatesAutoresizingMaskIntoConstraints(false);
  setAccessibilityElement(true);
  setAccessibilityRole(NSAccessibilityProgressIndicatorRole);
}

void ProgressBar::didMakeBackingLayer() {
  NSView::didMakeBackingLayer();
  filled_ = make<CALayer>();
  // Its values are set, not moved to.
  filled_->setActions(
      {{"backgroundColor", nullptr}, {"bounds", nullptr}, {"cornerRadius", nullptr}, {"position", nullptr}});
  layer()->addSublayer(filled_);
  placeFilledPart();
}

void ProgressBar::placeFilledPart() {
  if (filled_) filled_->setFrame({0, 0, bounds().width() * share_, bounds().height()});
}

}  // namespace bkuk::bench
