#include "gallery/pages/states/StatesPage.h"

#include <array>
#include <cstdio>

#include "gallery/cards/Grid.h"
#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"
#include "platform/appkit/NSApplication.h"

namespace bkuk::gallery {

namespace {

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat headingHeight = 20;
constexpr CGFloat gap = 12;
constexpr CGFloat sectionGap = 28;
constexpr CGFloat liveHeight = 84;
constexpr CGFloat liveWidth = 220;
constexpr CGFloat shownHeight = 56;
constexpr std::size_t logLines = 8;

constexpr std::array<std::string_view, 4> stateNames{"normal", "hover", "pressed", "disabled"};
constexpr std::array<std::string_view, 4> stateRemarks{"Enabled, the pointer elsewhere",
                                                       "Pointed at, or with the keyboard",
                                                       "The button is down inside", "Answers nobody"};

std::string_view nameOf(BKUKInteractionState state) { return stateNames[static_cast<std::size_t>(state)]; }

/// Stays in one state, whatever its user does.
class HeldButton : public Button {
 public:
  HeldButton(std::string title, States held) : Button(std::move(title)), held_(held) {}
  [[nodiscard]] States state() const override { return held_; }
  void setState(States) override {}
  [[nodiscard]] bool acceptsUserAction() const override { return false; }
  [[nodiscard]] bool acceptsFirstResponder() const override { return false; }

 private:
  States held_;
};

Grid grid(CGFloat width) {
  return {.width = width,
          .narrowest = 170,
          .cellHeight = shownHeight + Specimen::captionHeight,
          .gap = 20,
          .maxColumns = stateNames.size()};
}

}  // namespace

void StatesPage::didInit() {
  GalleryPage::didInit();
  makeLive();
  makeOptions();
  makeHeld();
}

void StatesPage::makeLive() {
  liveHeading_ = makeHeading("A view to play with");
  live_ = make<Button>("Press me", Button::Kind::toggle);
  live_->delegates()->add(this);
  live_->setActionBlock([page = Weak<StatesPage>(this)](BKUKStatefulView& view) {
    const auto self = page.lock();
    if (!self) return;
    const auto state = view.isSelected() ? "selected" : "not selected";
    self->log_->add("Action " + std::to_string(++self->actions_) + ", now " + state);
  });
  log_ = make<LogCard>(logLines,
                       "Point at it, press it, drag out and back, or reach it with Tab and press space.");
  addSubview(liveHeading_);
  addSubview(live_);
  addSubview(log_);
}

void StatesPage::makeOptions() {
  const auto addOption = [this](std::string title, bool isOn, auto apply) {
    const auto option = make<Button>(std::move(title), Button::Kind::toggle);
    option->setSelected(isOn);
    option->setActionBlock([view = Weak<Button>(live_), apply](BKUKStatefulView& sender) {
      if (const auto live = view.lock()) apply(*live, sender.isSelected());
    });
    options_.push_back(option);
    addSubview(option);
  };
  addOption("Enabled", true, [](Button& live, bool isOn) { live.setEnabled(isOn); });
  addOption("Also in inactive windows", false, [](Button& live, bool isOn) {
    live.setRegisterStateWhenWindowInactive(isOn);
    live.updateTrackingAreas();
  });
  addOption("Also where covered", false,
            [](Button& live, bool isOn) { live.setChangeStateWhenNotHittable(isOn); });
}

void StatesPage::makeHeld() {
  heldHeading_ = makeHeading("Each state");
  addSubview(heldHeading_);
  for (std::size_t i = 0; i < stateNames.size(); ++i) {
    const auto state = static_cast<BKUKInteractionState>(i);
    held_.push_back(make<Specimen>(make<HeldButton>("Button", state), std::string(stateNames[i]),
                                   std::string(stateRemarks[i])));
    addSubview(held_.back());
  }
}

void StatesPage::stateChanged(BKUKInteractionState state, BKUKStatefulView&) {
  log_->add("State " + std::string(nameOf(state)));
}

std::vector<NSView*> StatesPage::keyViews() const {
  std::vector<NSView*> views{live_.get()};
  for (const auto& option : options_) views.push_back(option.get());
  return views;
}

CGFloat StatesPage::heightForWidth(CGFloat width) const {
  return topMargin + headingHeight + gap + std::max(log_->fittingHeight(), liveHeight) + sectionGap +
         headingHeight + gap + grid(width - 2 * margin).heightOf(held_.size()) + margin;
}

void StatesPage::layout() {
  const CGFloat width = bounds().width() - 2 * margin;
  CGFloat top = topMargin;
  liveHeading_->setFrame({margin, top, width, headingHeight});
  top += headingHeight + gap;
  live_->setFrame(fromLeading(*this, {margin, top, liveWidth, liveHeight}));
  CGFloat optionTop = top + liveHeight + gap;
  for (const auto& option : options_) {
    option->setFrame(fromLeading(*this, {margin, optionTop, liveWidth, Button::height}));
    optionTop += Button::height + 8;
  }
  const CGFloat logStart = margin + liveWidth + 20;
  log_->setFrame(fromLeading(*this, {logStart, top, margin + width - logStart, log_->fittingHeight()}));
  top += std::max(log_->fittingHeight(), liveHeight) + sectionGap;
  heldHeading_->setFrame({margin, top, width, headingHeight});
  top += headingHeight + gap;
  for (std::size_t i = 0; i < held_.size(); ++i) {
    NSRect cell = grid(width).cell(i);
    cell.origin.x += margin;
    cell.origin.y += top;
    held_[i]->setFrame(fromLeading(*this, cell));
  }
}

}  // namespace bkuk::gallery
