#pragma once

#include "BrenvikUIKit/interaction/BKUKKeyMonitor.h"
#include "platform/appkit/NSWindow.h"

namespace bkuk {

// The key monitors of a window, which must be a `BKUKWindow` or a `BKUKPanel`; any other is a fatal error
// that names its class.

/// Pushes the monitor on the window's stack.
void appendKeyMonitor(NSWindow& window, Ref<BKUKKeyMonitor> monitor);
/// Takes the lowest entry of the monitor off; nothing happens when it is not there.
void removeKeyMonitor(NSWindow& window, const BKUKKeyMonitor* monitor);
void removeAllKeyMonitors(NSWindow& window);

}  // namespace bkuk
