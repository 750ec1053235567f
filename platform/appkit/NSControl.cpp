#include "platform/appkit/NSControl.h"

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSWindow.h"

namespace bkuk {

bool NSControl::sendAction(Selector action, NSObject* target) {
  const Ref<NSControl> self(this);
  const Ref<NSObject> keepTarget(target);
  return NSApplication::shared().sendAction(action, target, this);
}

void NSControl::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  setNeedsDisplay(true);
  NSAccessibilityPostNotification(*this, NSAccessibilityStateChangedNotification);
  const auto window = this->window();
  if (!enabled && window && window->firstResponder() == this) window->makeFirstResponder(nullptr);
}

void NSControl::mouseDown(NSEvent& event) {
  if (!isEnabled()) NSView::mouseDown(event);
}

}  // namespace bkuk
