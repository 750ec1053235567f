#include "gallery/pages/SingleColourSwatch.h"

#include "gallery/chrome/Described.h"
#include "gallery/pages/RoleName.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;
constexpr CGFloat boxHeight = 64;

}  // namespace

void SingleColourSwatch::didInit() {
  NSView::didInit();
  box_ = make<Box>(
      Box::Look{.fill = role(role_), .border = role(Role::onBackgroundExtraLight), .cornerRadius = 12});
  name_ = make<TextLabel>(std::string(roleName(role_)),
                          TextLabel::Style{.size = 12.5, .weight = 500, .color = role(Role::onBackground)});
  value_ = make<TextLabel>("", TextLabel::Style{.size = 11, .color = role(Role::onBackgroundSecondary)});
  addSubview(box_);
  addSubview(name_);
  addSubview(value_);
  showValue();
}

void SingleColourSwatch::showValue() {
  value_->setText(hexText(*BKUKTheme::color(role_)));
  describeImage(*this, name_->text() + ", " + value_->text());
}

void SingleColourSwatch::viewDidChangeEffectiveAppearance() {
  NSView::viewDidChangeEffectiveAppearance();
  showValue();
}

void SingleColourSwatch::layout() {
  const CGFloat width = bounds().width();
  box_->setFrame({0, 0, width, boxHeight});
  name_->setFrame({2, boxHeight + 6, width - 4, 20});
  value_->setFrame({2, boxHeight + 25, width - 4, 17});
}

}  // namespace bkuk::gallery
