#include "gallery/cards/Card.h"

#include <utility>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 18;
constexpr CGFloat titleTop = 14;
constexpr CGFloat titleHeight = 20;
constexpr CGFloat remarkHeight = 17;
constexpr CGFloat contentTop = 66;

}  // namespace

Card::Card(std::string title, std::string remark)
    : Box({.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14}),
      title_(makeHeading(std::move(title), role(Role::onSurface))),
      remark_(makeRemark(std::move(remark), role(Role::onSurfaceSecondary))) {}

void Card::didInit() {
  Box::didInit();
  describe(*this, NSAccessibilityGroupRole, title_->text());
  addSubview(title_);
  addSubview(remark_);
}

void Card::setRemark(std::string remark) { remark_->setText(std::move(remark)); }

void Card::heightDidChange() {
  setNeedsLayout(true);
  const auto page = superview();
  if (!page) return;
  page->setNeedsLayout(true);
  if (const auto scroller = page->superview()) scroller->setNeedsLayout(true);
}

CGFloat Card::heightForWidth(CGFloat width) const {
  return contentTop + contentHeight(width - 2 * padding) + padding;
}

void Card::layout() {
  const CGFloat width = bounds().width() - 2 * padding;
  title_->setFrame({padding, titleTop, width, titleHeight});
  remark_->setFrame({padding, titleTop + titleHeight, width, remarkHeight});
  layoutContent({padding, contentTop, width, bounds().height() - contentTop - padding});
}

}  // namespace bkuk::gallery
