#include "gallery/chrome/Choice.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat segmentHeight = 28;
constexpr CGFloat segmentPadding = 14;
constexpr CGFloat rowHeight = 34;
constexpr CGFloat rowPadding = 12;
constexpr CGFloat markerInset = 2;
constexpr std::uint16_t leftKey = 123;
constexpr std::uint16_t rightKey = 124;
constexpr std::uint16_t downKey = 125;
constexpr std::uint16_t upKey = 126;

}  // namespace

Choice::Choice(Arrangement arrangement, std::vector<std::string> options, std::size_t selected,
               Handler chosen)
    : arrangement_(arrangement),
      options_(std::move(options)),
      selected_(selected),
      chosen_(std::move(chosen)) {}

void Choice::didInit() {
  Box::didInit();
  const bool isList = arrangement_ == Arrangement::list;
  marker_ = make<Box>(Box::Look{.fill = role(isList ? Role::desktopMenuStateB : Role::surface),
                                .border = isList ? Color() : role(Role::onBackgroundExtraLight),
                                .cornerRadius = isList ? 7.0 : 6.0});
  addSubview(marker_);
  for (const auto& option : options_) {
    labels_.push_back(
        make<TextLabel>(option, TextLabel::Style{.size = isList ? 13.5 : 12.5,
                                                 .weight = 500,
                                                 .color = role(Role::onBackground),
                                                 .alignment = isList ? TextLabel::Alignment::leading
                                                                     : TextLabel::Alignment::center}));
    addSubview(labels_.back());
  }
  makeElements();
  showFocus(false);
  showSelection();
}

void Choice::makeElements() {
  for (std::size_t i = 0; i < options_.size(); ++i) {
    elements_.push_back(make<ChoiceOption>(*this, i));
    elements_.back()->setAccessibilityLabel(options_[i]);
  }
  setAccessibilityChildren({elements_.begin(), elements_.end()});
}

NSAccessibilityRole Choice::accessibilityRole() const {
  return arrangement_ == Arrangement::list ? NSAccessibilityListRole : NSAccessibilityRadioGroupRole;
}

Ref<NSAccessibility> Choice::accessibilityFocusedUIElement() const { return elements_[selected_]; }

void Choice::setSelected(std::size_t index) {
  const std::size_t before = std::exchange(selected_, std::min(index, options_.size() - 1));
  showSelection();
  setNeedsLayout(true);
  if (before == selected_) return;
  elements_[before]->selectionDidChange();
  elements_[selected_]->selectionDidChange();
  if (focused_) NSAccessibilityPostNotification(*this, NSAccessibilityFocusedUIElementChangedNotification);
}

void Choice::showSelection() {
  const bool isList = arrangement_ == Arrangement::list;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    const bool isSelected = i == selected_;
    if (isList) {
      labels_[i]->setColor(role(isSelected ? Role::onDesktopMenu : Role::onDesktopMenuSecondary));
    } else {
      labels_[i]->setColor(role(isSelected ? Role::onSurface : Role::onBackgroundSecondary));
    }
  }
}

void Choice::showFocus(bool focused) {
  focused_ = focused;
  const bool isList = arrangement_ == Arrangement::list;
  setLook({.fill = isList ? Color() : role(Role::backgroundStateB),
           .border = focused ? role(Role::accentHighContrast) : Color(),
           .borderWidth = 2,
           .cornerRadius = isList ? 9.0 : 8.0});
}

Ref<NSView> Choice::hitTest(NSPoint point) { return Box::hitTest(point) ? this : nullptr; }

bool Choice::becomeFirstResponder() {
  showFocus(true);
  return true;
}

bool Choice::resignFirstResponder() {
  showFocus(false);
  return true;
}

CGFloat Choice::segmentWidth() const {
  CGFloat widest = 0;
  for (const auto& label : labels_) widest = std::max(widest, label->textWidth());
  return std::ceil(widest) + 2 * segmentPadding;
}

NSSize Choice::fittingSize() const {
  const auto count = static_cast<CGFloat>(options_.size());
  if (arrangement_ == Arrangement::segments) return {segmentWidth() * count, segmentHeight};
  return {segmentWidth(), rowHeight * count};
}

NSRect Choice::optionFrame(std::size_t index) const {
  const auto place = static_cast<CGFloat>(index);
  if (arrangement_ == Arrangement::list) return {0, rowHeight * place, bounds().width(), rowHeight};
  return fromLeading(*this, {segmentWidth() * place, 0, segmentWidth(), segmentHeight});
}

void Choice::layout() {
  const CGFloat padding = arrangement_ == Arrangement::list ? rowPadding : 0;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_[i]->setFrame(optionFrame(i).insetBy(padding, 0));
    elements_[i]->setAccessibilityFrameInParentSpace(optionFrame(i));
  }
  marker_->setFrame(optionFrame(selected_).insetBy(markerInset, markerInset));
}

void Choice::choose(std::size_t index) {
  if (index == selected_) return;
  const Ref<Choice> self(this);
  setSelected(index);
  if (chosen_) chosen_(index);
}

void Choice::mouseDown(NSEvent& event) {
  const NSPoint point = convertPointFrom(event.locationInWindow(), nullptr);
  for (std::size_t i = 0; i < options_.size(); ++i) {
    if (NSPointInRect(point, optionFrame(i))) return choose(i);
  }
}

int Choice::stepForKey(std::uint16_t keyCode) const {
  if (arrangement_ == Arrangement::list) return keyCode == downKey ? 1 : keyCode == upKey ? -1 : 0;
  const int right = isRightToLeft(*this) ? -1 : 1;
  return keyCode == rightKey ? right : keyCode == leftKey ? -right : 0;
}

void Choice::keyDown(NSEvent& event) {
  const int step = stepForKey(event.keyCode());
  if (step == 0) return Box::keyDown(event);
  const auto last = static_cast<std::ptrdiff_t>(options_.size()) - 1;
  choose(static_cast<std::size_t>(
      std::clamp(static_cast<std::ptrdiff_t>(selected_) + step, std::ptrdiff_t{0}, last)));
}

}  // namespace bkuk::gallery
