#include "gallery/chrome/Choice.h"

#include <algorithm>
#include <utility>

#include "gallery/chrome/Clicking.h"
#include "gallery/chrome/Direction.h"
#include "platform/appkit/NSKeyCode.h"
#include "platform/foundation/CGRoundedUp.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat segmentHeight = 28;
constexpr CGFloat segmentPadding = 14;
constexpr CGFloat rowHeight = 34;
constexpr CGFloat rowMargin = 12;
constexpr CGFloat rowPadding = 24;
constexpr CGFloat markerInset = 2;

/// What is nearer is lighter in both appearances, so each takes the surface that is.
Color themed(Role light, Role dark) {
  return [=]() -> Ref<NSColor> {
    return make<BKUKThemedColor>(BKUKTheme::color(light), BKUKTheme::color(dark));
  };
}

Color groove() { return themed(Role::backgroundStateB, Role::backgroundStateA); }

Box::Look raisedLook() {
  return {.fill = themed(Role::surface, Role::surfaceStateB),
          .border = role(Role::onBackgroundExtraLight),
          .cornerRadius = 6};
}

Box::Look rowLook(Role fill) { return {.fill = role(fill), .cornerRadius = 7}; }

Ref<NSShadow> raisedShadow() {
  auto shadow = make<NSShadow>();
  shadow->setShadowColor(NSColor::srgbRed(0, 0, 0, 0.2));
  shadow->setShadowOffset({0, -1});
  shadow->setShadowBlurRadius(2);
  return shadow;
}

}  // namespace

Choice::Choice(Arrangement arrangement, std::vector<std::string> options, std::size_t selected,
               Handler chosen)
    : arrangement_(arrangement),
      options_(std::move(options)),
      selected_(selected),
      chosen_(std::move(chosen)) {}

void Choice::didInit() {
  Box::didInit();
  hover_ = make<Box>(rowLook(Role::desktopMenuStateA));
  marker_ = make<Box>(raisedLook());
  if (!isList()) marker_->setShadow(raisedShadow());
  addSubview(hover_);
  addSubview(marker_);
  for (const auto& option : options_) {
    labels_.push_back(
        make<TextLabel>(option, TextLabel::Style{.size = isList() ? 13.5 : 12.5,
                                                 .weight = 500,
                                                 .color = role(Role::onBackground),
                                                 .alignment = isList() ? TextLabel::Alignment::leading
                                                                       : TextLabel::Alignment::center}));
    addSubview(labels_.back());
  }
  addTrackingArea(make<NSTrackingArea>(NSRect(),
                                       NSTrackingMouseEnteredAndExited | NSTrackingMouseMoved |
                                           NSTrackingActiveInActiveApp | NSTrackingInVisibleRect,
                                       this));
  makeElements();
  showFocus(false);
}

void Choice::makeElements() {
  for (std::size_t i = 0; i < options_.size(); ++i) {
    elements_.push_back(make<ChoiceOption>(*this, i));
    elements_.back()->setAccessibilityLabel(options_[i]);
  }
  setAccessibilityChildren({elements_.begin(), elements_.end()});
}

NSAccessibilityRole Choice::accessibilityRole() const {
  return isList() ? NSAccessibilityListRole : NSAccessibilityRadioGroupRole;
}

Ref<NSAccessibility> Choice::accessibilityFocusedUIElement() const { return elements_[selected_]; }

void Choice::setSelected(std::size_t index) {
  const std::size_t before = std::exchange(selected_, std::min(index, options_.size() - 1));
  showOptions();
  setNeedsLayout(true);
  if (before == selected_) return;
  elements_[before]->selectionDidChange();
  elements_[selected_]->selectionDidChange();
  if (focused_) NSAccessibilityPostNotification(*this, NSAccessibilityFocusedUIElementChangedNotification);
}

BKUKThemeColorRole Choice::labelRole(std::size_t index) const {
  const bool isSelected = index == selected_;
  if (isSelected && focused_ && isList()) return Role::onAccent;
  if (isSelected || index == hovered_) return isList() ? Role::onDesktopMenu : Role::onSurface;
  return isList() ? Role::onDesktopMenuSecondary : Role::onBackgroundSecondary;
}

void Choice::showOptions() {
  for (std::size_t i = 0; i < labels_.size(); ++i) labels_[i]->setColor(role(labelRole(i)));
  hover_->setHidden(!isList() || !hovered_ || hovered_ == selected_);
  setNeedsLayout(true);
}

void Choice::showHover(std::optional<std::size_t> index) {
  if (index == std::exchange(hovered_, index)) return;
  showOptions();
}

// The row that the arrow keys move from is filled where they move it; segments have an edge around them.
void Choice::showFocus(bool focused) {
  focused_ = focused;
  if (isList()) {
    marker_->setLook(rowLook(focused ? Role::accent : Role::desktopMenuStateB));
  } else {
    setLook({.fill = groove(),
             .border = focused ? role(Role::accentHighContrast) : Color(),
             .borderWidth = 2,
             .cornerRadius = 8,
             .clips = true});
  }
  showOptions();
}

Ref<NSView> Choice::hitTest(NSPoint point) { return Box::hitTest(point) ? this : nullptr; }

bool Choice::becomeFirstResponder() {
  showFocus(isList() || !isClicking());
  revealSelected();
  return true;
}

void Choice::revealSelected() { scrollToVisible(optionFrame(selected_)); }

bool Choice::resignFirstResponder() {
  showFocus(false);
  return true;
}

CGFloat Choice::segmentWidth() const {
  CGFloat widest = 0;
  for (const auto& label : labels_) widest = std::max(widest, label->textWidth());
  return CGRoundedUp(widest) + 2 * segmentPadding;
}

NSSize Choice::fittingSize() const {
  const auto count = static_cast<CGFloat>(options_.size());
  return isList() ? NSSize{segmentWidth(), rowHeight * count} : NSSize{segmentWidth() * count, segmentHeight};
}

NSRect Choice::optionFrame(std::size_t index) const {
  const auto place = static_cast<CGFloat>(index);
  if (isList()) return {0, rowHeight * place, bounds().width(), rowHeight};
  return fromLeading(*this, {segmentWidth() * place, 0, segmentWidth(), segmentHeight});
}

std::optional<std::size_t> Choice::optionAt(NSPoint locationInWindow) const {
  const NSPoint point = convertPointFrom(locationInWindow, nullptr);
  for (std::size_t i = 0; i < options_.size(); ++i) {
    if (NSPointInRect(point, optionFrame(i))) return i;
  }
  return std::nullopt;
}

void Choice::layout() {
  const CGFloat padding = isList() ? rowPadding : 0;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_[i]->setFrame(optionFrame(i).insetBy(padding, 0));
    elements_[i]->setAccessibilityFrameInParentSpace(optionFrame(i));
  }
  const CGFloat inset = isList() ? rowMargin : markerInset;
  marker_->setFrame(optionFrame(selected_).insetBy(inset, markerInset));
  if (hovered_) hover_->setFrame(optionFrame(*hovered_).insetBy(inset, markerInset));
}

void Choice::choose(std::size_t index) {
  if (index == selected_) return;
  const Ref<Choice> self(this);
  setSelected(index);
  if (chosen_) chosen_(index);
}

// Events

void Choice::mouseEntered(NSEvent& event) { showHover(optionAt(event.locationInWindow())); }

void Choice::mouseMoved(NSEvent& event) { showHover(optionAt(event.locationInWindow())); }

void Choice::mouseExited(NSEvent&) { showHover(std::nullopt); }

void Choice::updateTrackingAreas() {
  Box::updateTrackingAreas();
  if (hovered_) showHover(optionAt(window()->mouseLocationOutsideOfEventStream()));
}

void Choice::mouseDown(NSEvent& event) {
  if (const auto option = optionAt(event.locationInWindow())) choose(*option);
}

std::optional<std::size_t> Choice::optionForKey(std::uint16_t keyCode) const {
  const std::size_t last = options_.size() - 1;
  const bool runsLeft = !isList() && isRightToLeft(*this);
  const auto forward = isList() ? NSKeyCode::down : runsLeft ? NSKeyCode::left : NSKeyCode::right;
  const auto back = isList() ? NSKeyCode::up : runsLeft ? NSKeyCode::right : NSKeyCode::left;
  if (keyCode == forward) return std::min(selected_ + 1, last);
  if (keyCode == back) return selected_ == 0 ? 0 : selected_ - 1;
  if (keyCode == NSKeyCode::home) return 0;
  if (keyCode == NSKeyCode::end) return last;
  return std::nullopt;
}

void Choice::keyDown(NSEvent& event) {
  const auto option = optionForKey(event.keyCode());
  if (!option) return Box::keyDown(event);
  showFocus(true);
  choose(*option);
  revealSelected();
}

}  // namespace bkuk::gallery
