#pragma once

#include <vector>

#include "platform/appkit/NSAccessibility.h"

namespace bkuk {

/// The elements that a client finds in `container`: its children, and in the place of those that are no
/// elements what these hold. Hidden ones are left out.
///
/// Views come in the order in which the keyboard meets them, by their places. Where an application says what
/// the children are, their order is the one that it gave.
[[nodiscard]] std::vector<Ref<NSAccessibility>> accessibilityElementsIn(const NSAccessibility& container);

}  // namespace bkuk
