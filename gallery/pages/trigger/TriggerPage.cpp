#include "gallery/pages/trigger/TriggerPage.h"

#include <cstdio>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"
#include "gallery/pages/trigger/TriggerButton.h"
#include "host/Host.h"
#include "host/Loop.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat headingHeight = 20;
constexpr CGFloat gap = 12;
constexpr CGFloat sectionGap = 28;
constexpr NSSize buttonSize{64, 48};
constexpr CGFloat numberWidth = 132;
constexpr CGFloat delayNameWidth = 220;
constexpr CGFloat widestSlider = 360;

std::string described(const std::string& name, CGFloat seconds) {
  char text[32];
  std::snprintf(text, sizeof text, ": %.2f s", seconds);
  return name + text;
}

}  // namespace

void TriggerPage::didInit() {
  GalleryPage::didInit();
  stepperHeading_ = makeHeading("Hold the button, or the space key");
  decrease_ = makeTrigger("\u2212", "Decrease", -1);
  increase_ = makeTrigger("+", "Increase", 1);
  numberLabel_ = make<TextLabel>("0", TextLabel::Style{.size = 30,
                                                       .weight = 600,
                                                       .color = role(Role::onBackground),
                                                       .alignment = TextLabel::Alignment::center});
  delayHeading_ = makeHeading("Repetition");
  pulsesHeading_ = makeHeading("Fires, on a line of three seconds");
  pulses_ = make<PulseStrip>();
  for (const Ref<NSView>& view :
       {Ref<NSView>(stepperHeading_), Ref<NSView>(numberLabel_), Ref<NSView>(delayHeading_),
        Ref<NSView>(pulsesHeading_), Ref<NSView>(pulses_)}) {
    addSubview(view);
  }
  delays_.push_back(makeDelay("Before the second fire", {.least = 0.1, .greatest = 1, .step = 0.05},
                              increase_->delayAfterFirstTick(), &BKUKTriggerView::setDelayAfterFirstTick));
  delays_.push_back(makeDelay("Between the others", {.least = 0.02, .greatest = 0.5, .step = 0.01},
                              increase_->delayBetweenTicks(), &BKUKTriggerView::setDelayBetweenTicks));
}

Ref<BKUKTriggerView> TriggerPage::makeTrigger(std::string title, std::string label, int by) {
  const auto trigger = make<TriggerButton>(std::move(title));
  trigger->setAccessibilityLabel(std::move(label));
  trigger->setActionBlock([page = Weak<TriggerPage>(this), by](BKUKTriggerView&) {
    if (const auto self = page.lock()) self->step(by);
  });
  addSubview(trigger);
  return trigger;
}

TriggerPage::Delay TriggerPage::makeDelay(std::string name, Slider::Range range, CGFloat seconds,
                                          void (BKUKTriggerView::*apply)(double)) {
  Delay delay;
  delay.name = makeCaption(described(name, seconds));
  delay.slider =
      make<Slider>(range, seconds, [this, name, apply, label = Weak<TextLabel>(delay.name)](CGFloat value) {
        for (const auto& trigger : {decrease_, increase_}) (trigger.get()->*apply)(value);
        if (const auto shown = label.lock()) shown->setText(described(name, value));
      });
  addSubview(delay.name);
  addSubview(delay.slider);
  return delay;
}

void TriggerPage::step(int by) {
  number_ += by;
  numberLabel_->setText(std::to_string(number_));
  pulses_->mark(host::current().loop().now());
}

std::vector<NSView*> TriggerPage::keyViews() const {
  std::vector<NSView*> views{decrease_.get(), increase_.get()};
  for (const auto& delay : delays_) views.push_back(delay.slider.get());
  return views;
}

CGFloat TriggerPage::heightForWidth(CGFloat) const {
  return topMargin + headingHeight + gap + buttonSize.height + sectionGap + headingHeight + gap +
         static_cast<CGFloat>(delays_.size()) * (Slider::height + 6) + sectionGap + headingHeight + gap +
         PulseStrip::height + margin;
}

void TriggerPage::layout() {
  const CGFloat width = bounds().width() - 2 * margin;
  CGFloat top = topMargin;
  stepperHeading_->setFrame({margin, top, width, headingHeight});
  top += headingHeight + gap;
  decrease_->setFrame(fromLeading(*this, {{margin, top}, buttonSize}));
  numberLabel_->setFrame(
      fromLeading(*this, {margin + buttonSize.width, top, numberWidth, buttonSize.height}));
  increase_->setFrame(fromLeading(*this, {{margin + buttonSize.width + numberWidth, top}, buttonSize}));
  top += buttonSize.height + sectionGap;
  delayHeading_->setFrame({margin, top, width, headingHeight});
  top += headingHeight + gap;
  const CGFloat sliderWidth = std::min(widestSlider, width - delayNameWidth);
  for (const auto& delay : delays_) {
    delay.name->setFrame(fromLeading(*this, {margin, top, delayNameWidth, Slider::height}));
    delay.slider->setFrame(fromLeading(*this, {margin + delayNameWidth, top, sliderWidth, Slider::height}));
    top += Slider::height + 6;
  }
  top += sectionGap;
  pulsesHeading_->setFrame({margin, top, width, headingHeight});
  pulses_->setFrame({margin, top + headingHeight + gap, width, PulseStrip::height});
}

}  // namespace bkuk::gallery
