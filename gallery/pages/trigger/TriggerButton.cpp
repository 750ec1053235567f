#include "gallery/pages/trigger/TriggerButton.h"

#include "BrenvikUIKit/style/BKUKStatefulColors.h"
#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

}  // namespace

TriggerButton::TriggerButton(std::string title)
    : title_(make<TextLabel>(std::move(title), TextLabel::Style{.size = 22,
                                                                .weight = 400,
                                                                .color = role(Role::onAccent),
                                                                .alignment = TextLabel::Alignment::center})) {
}

void TriggerButton::didInit() {
  BKUKTriggerView::didInit();
  setAccessibilityRole(NSAccessibilityButtonRole);
  title_->setAccessibilityHidden(true);
  addSubview(title_);
}

void TriggerButton::updateLayer() {
  const BKUKStatefulColors fill(BKUKTheme::color(Role::accent), BKUKTheme::color(Role::accentStateA),
                                BKUKTheme::color(Role::accentStateB),
                                BKUKTheme::color(Role::onSurfaceExtraLight));
  layer()->setCornerRadius(10);
  layer()->setBackgroundColor(fill[state()]->cgColor());
}

void TriggerButton::layout() { title_->setFrame(bounds()); }

}  // namespace bkuk::gallery
