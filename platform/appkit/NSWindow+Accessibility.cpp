// What a window tells assistive clients.

#include "platform/appkit/NSWindow.h"

#include "platform/appkit/accessibility/AccessibilityRecord.h"

namespace bkuk {

NSAccessibilityRole NSWindow::accessibilityRole() const {
  const auto& role = accessibilityRecord().role;
  return role ? role.view() : NSAccessibilityWindowRole;
}

std::string NSWindow::accessibilityLabel() const {
  auto own = NSResponder::accessibilityLabel();
  return own.empty() ? title_ : own;
}

bool NSWindow::isAccessibilityElement() const {
  return AccessibilityRecord::resolved(accessibilityRecord().isElement, true);
}

bool NSWindow::isAccessibilityFocused() const { return isKeyWindow() && firstResponder().get() == this; }

Ref<NSAccessibility> NSWindow::accessibilityFocusedUIElement() const {
  const auto responder = firstResponder();
  if (responder.get() == this) return responder;
  return responder->accessibilityFocusedUIElement();
}

std::vector<Ref<NSAccessibility>> NSWindow::accessibilityChildren() const {
  const auto& place = accessibilityRecord().place;
  if (place && place->children) return *place->children;
  return {contentView_};
}

NSRect NSWindow::accessibilityFrame() const { return frame_; }

}  // namespace bkuk
