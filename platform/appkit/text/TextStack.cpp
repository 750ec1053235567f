#include "platform/appkit/text/TextStack.h"

#include <utility>

namespace bkuk {

TextStack::TextStack(Ref<NSLayoutManager> manager) : manager_(std::move(manager)) {
  container_->setLineFragmentPadding(0);
  manager_->addTextContainer(container_);
  storage_->addLayoutManager(manager_);
}

void TextStack::setLayout(CGFloat width, NSUserInterfaceLayoutDirection direction) const {
  manager_->setUserInterfaceLayoutDirection(direction);
  container_->setSize({width, 0});
}

NSSize TextStack::measure(CGFloat width, NSStringDrawingOptions options) const {
  return storage_->boundingRect({width, 0}, options | NSStringDrawingOptions::usesLineFragmentOrigin).size;
}

void TextStack::draw(NSPoint at) const {
  const NSRange shown = shownRange();
  manager_->drawBackground(shown, at);
  manager_->drawGlyphs(shown, at);
}

}  // namespace bkuk
