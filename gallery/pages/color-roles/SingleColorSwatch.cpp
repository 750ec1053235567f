#include "gallery/pages/color-roles/SingleColorSwatch.h"

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"
#include "gallery/pages/color-roles/RoleName.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;
constexpr CGFloat boxHeight = 64;

}  // namespace

void SingleColorSwatch::didInit() {
  NSView::didInit();
  box_ = make<Box>(
      Box::Look{.fill = role(role_), .border = role(Role::onBackgroundExtraLight), .cornerRadius = 12});
  name_ = makeCaption(std::string(roleName(role_)));
  value_ = makeRemark("");
  addSubview(box_);
  addSubview(name_);
  addSubview(value_);
  showValue();
}

void SingleColorSwatch::showValue() {
  value_->setText(hexText(*BKUKTheme::color(role_)));
  describeImage(*this, name_->text() + ", " + value_->text());
}

void SingleColorSwatch::viewDidChangeEffectiveAppearance() {
  NSView::viewDidChangeEffectiveAppearance();
  showValue();
}

void SingleColorSwatch::layout() {
  const CGFloat width = bounds().width();
  box_->setFrame({0, 0, width, boxHeight});
  name_->setFrame({2, boxHeight + 6, width - 4, 20});
  value_->setFrame({2, boxHeight + 25, width - 4, 17});
}

}  // namespace bkuk::gallery
