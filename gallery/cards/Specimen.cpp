#include "gallery/cards/Specimen.h"

#include <utility>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"

namespace bkuk::gallery {

Specimen::Specimen(Ref<NSView> shown, std::string name, std::string remark)
    : shown_(std::move(shown)), name_(makeCaption(std::move(name))), remark_(makeRemark(std::move(remark))) {}

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
