#include "testing/VirtualAccessibility.h"

#include "testing/VirtualScreenReader.h"

namespace bkuk {

void VirtualAccessibility::announce(const host::AccessibilityChange& change) {
  if (reader_) reader_->note(change);
}

}  // namespace bkuk
