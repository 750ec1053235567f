#pragma once

#include "platform/foundation/NSNotificationName.h"

namespace bkuk {

/// Posted with the application as its object and no user info at each change of the application's effective
/// appearance, while `BKUKAppAppearanceObserver` observes it.
[[nodiscard]] NSNotificationName appAppearanceChanged();

}  // namespace bkuk
