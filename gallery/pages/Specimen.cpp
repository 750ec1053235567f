#include "gallery/pages/Specimen.h"

#include <utility>

#include "gallery/chrome/Described.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

}  // namespace

Specimen::Specimen(Ref<NSView> shown, std::string name, std::string remark)
    : shown_(std::move(shown)),
      name_(make<TextLabel>(
          std::move(name), TextLabel::Style{.size = 12.5, .weight = 500, .color = role(Role::onBackground)})),
      remark_(make<TextLabel>(std::move(remark),
                              TextLabel::Style{.size = 11, .color = role(Role::onBackgroundSecondary)})) {}

void Specimen::didInit() {
  NSView::didInit();
  addSubview(shown_);
  addSubview(name_);
  addSubview(remark_);
  describeImage(*this, name_->text());
  setAccessibilityHelp(remark_->text());
}

void Specimen::setRemark(std::string remark) {
  setAccessibilityHelp(remark);
  remark_->setText(std::move(remark));
}

void Specimen::layout() {
  const NSSize size = bounds().size;
  const CGFloat shownHeight = size.height - captionHeight;
  shown_->setFrame({0, 0, size.width, shownHeight});
  name_->setFrame({0, shownHeight + 8, size.width, 19});
  remark_->setFrame({0, shownHeight + 27, size.width, 17});
}

}  // namespace bkuk::gallery
