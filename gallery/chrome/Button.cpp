#include "gallery/chrome/Button.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/style/BKUKStatefulBorder.h"
#include "platform/foundation/CGRoundedUp.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 14;
constexpr CGFloat radius = 8;

Ref<NSColor> of(Role which) { return BKUKTheme::color(which); }

struct Look {
  BKUKStatefulColors fill;
  BKUKStatefulBorder border;
  BKUKStatefulColors title;
};

Look pushLook() {
  return {
      BKUKStatefulColors(of(Role::surface), of(Role::surfaceStateA), of(Role::surfaceStateB)),
      BKUKStatefulBorder(BKUKStatefulColors(of(Role::onSurfaceLight), {}, {}, of(Role::onSurfaceExtraLight)),
                         BKUKStatefulWidths(1)),
      BKUKStatefulColors(of(Role::onSurface), {}, {}, of(Role::onSurfaceDisabled))};
}

Look selectedLook() {
  return {BKUKStatefulColors(of(Role::accent), of(Role::accentStateA), of(Role::accentStateB),
                             of(Role::onSurfaceExtraLight)),
          BKUKStatefulBorder(BKUKStatefulColors::clear(), BKUKStatefulWidths(0)),
          BKUKStatefulColors(of(Role::onAccent), {}, {}, of(Role::onSurfaceDisabled))};
}

Look lookOf(bool isOn) { return isOn ? selectedLook() : pushLook(); }

}  // namespace

Button::Button(std::string title, Kind kind)
    : kind_(kind),
      title_(make<TextLabel>(std::move(title), TextLabel::Style{.size = 13,
                                                                .weight = 500,
                                                                .color = role(Role::onSurface),
                                                                .alignment = TextLabel::Alignment::center})) {
}

void Button::didInit() {
  BKUKStatefulView::didInit();
  setAccessibilityRole(kind_ == Kind::toggle ? NSAccessibilityCheckBoxRole : NSAccessibilityButtonRole);
  setAccessibilityLabel(title_->text());
  title_->setAccessibilityHidden(true);
  title_->setColor([button = Weak<Button>(this)] {
    const auto self = button.lock();
    return self ? lookOf(self->kind_ == Kind::toggle && self->isSelected()).title[self->state()]
                : NSColor::clear();
  });
  addSubview(title_);
}

NSSize Button::fittingSize() const { return {CGRoundedUp(title_->textWidth()) + 2 * padding, height}; }

void Button::setSelected(bool selected) {
  BKUKStatefulView::setSelected(selected);
  title_->setNeedsDisplay(true);
}

void Button::stateChanged(States state) {
  BKUKStatefulView::stateChanged(state);
  title_->setNeedsDisplay(true);
}

NSAccessibilityValue Button::accessibilityValue() const {
  return kind_ == Kind::toggle ? NSAccessibilityValue(isSelected() ? 1.0 : 0.0) : NSAccessibilityValue();
}

void Button::updateLayer() {
  BKUKStatefulView::updateLayer();
  const Look look = lookOf(kind_ == Kind::toggle && isSelected());
  layer()->setCornerRadius(radius);
  layer()->setBackgroundColor(look.fill[state()]->cgColor());
  layer()->setBorderWidth(look.border.widths()[state()]);
  layer()->setBorderColor(look.border.colors()[state()]->cgColor());
}

void Button::layout() { title_->setFrame(bounds()); }

}  // namespace bkuk::gallery
