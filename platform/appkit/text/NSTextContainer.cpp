#include "platform/appkit/text/NSTextContainer.h"

#include "platform/appkit/text/NSLayoutManager.h"

namespace bkuk {

template <typename T>
void NSTextContainer::change(T& field, T value) {
  if (field == value) return;
  field = value;
  if (const auto manager = layoutManager_.lock()) manager->invalidateLayout();
}

void NSTextContainer::setSize(NSSize size) { change(size_, size); }

void NSTextContainer::setLineFragmentPadding(CGFloat padding) { change(padding_, padding); }

void NSTextContainer::setMaximumNumberOfLines(std::size_t count) { change(maximumNumberOfLines_, count); }

void NSTextContainer::setLineBreakMode(NSLineBreakMode mode) { change(lineBreakMode_, mode); }

Ref<NSLayoutManager> NSTextContainer::layoutManager() const { return layoutManager_.lock(); }

}  // namespace bkuk
