#include "gallery/cards/LabelBox.h"

#include <utility>

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 12;
constexpr CGFloat verticalPadding = 8;

}  // namespace

LabelBox::LabelBox(Ref<BKUKLabel> label)
    : Box({.fill = role(Role::background), .cornerRadius = 8}), label_(std::move(label)) {}

void LabelBox::didInit() {
  Box::didInit();
  addSubview(label_);
}

void LabelBox::layout() { label_->setFrame(bounds().insetBy(padding, verticalPadding)); }

}  // namespace bkuk::gallery
