#include "bench/peer/kit/PushButton.h"

#include <array>

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "bench/peer/kit/Text.h"
#include "platform/appkit/NSLayoutAnchor.h"
#include "platform/appkit/NSLayoutConstraint.h"

namespace bkuk::bench {

void PushButton::updateLayer() {
  BKUKStatefulView::updateLayer();
  const auto fill = state() == States::hover ? BKUKTheme::surfaceStateA() : BKUKTheme::surface();
  layer()->setCornerRadius(4);
  layer()->setBorderWidth(1);
  layer()->setBorderColor(BKUKTheme::onBackgroundSecondary()->cgColor());
  layer()->setBackgroundColor(fill->cgColor());
}

void PushButton::didInit() {
  BKUKStatefulView::didInit();
  setTranslatesAutoresizingMaskIntoConstraints(false);
  setAccessibilityRole(NSAccessibilityButtonRole);
  setAccessibilityLabel(title_);
  const auto label = makeLabel(title_);
  addSubview(label);
  const std::array constraints{
      label->centerXAnchor()->constraintEqualTo(centerXAnchor()),
      label->topAnchor()->constraintEqualTo(topAnchor(), 6),
      label->bottomAnchor()->constraintEqualTo(bottomAnchor(), -6),
  };
  NSLayoutConstraint::activateConstraints(constraints);
}

}  // namespace bkuk::bench
