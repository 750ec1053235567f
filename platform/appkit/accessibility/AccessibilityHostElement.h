#pragma once

#include "host/Accessibility.h"
#include "platform/appkit/NSAccessibility.h"

namespace bkuk {

/// What the host is told of an element whose focus its window has or has not.
[[nodiscard]] host::AccessibilityElement hostElementFrom(const NSAccessibility& element, bool isFocused);

}  // namespace bkuk
