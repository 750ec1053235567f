#include "BrenvikUIKit/interaction/FirstResponderChange.h"

#include "BrenvikUIKit/interaction/BKUKNSView+Extensions.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "platform/appkit/NSAccessibility.h"
#include "platform/foundation/NSNotificationCenter.h"

namespace bkuk {

namespace {

constexpr double scrollDuration = 0.1;  // seconds

}  // namespace

void announceFirstResponderChange(NSWindow& window, NSResponder* responder) {
  NSNotificationCenter::default_().post(BKUKWindow::firstResponderChange, responder);
  const auto present = window.firstResponder();
  NSAccessibilityPostNotification(*present, NSAccessibilityFocusedUIElementChangedNotification);
  if (const auto view = as<NSView>(present)) scrollToBeVisible(*view, scrollDuration);
}

}  // namespace bkuk
