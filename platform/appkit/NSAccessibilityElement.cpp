#include "platform/appkit/NSAccessibilityElement.h"

#include "platform/appkit/NSView.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityRecord.h"

namespace bkuk {

bool NSAccessibilityElement::isAccessibilityElement() const {
  return AccessibilityRecord::resolved(accessibilityRecord().isElement, true);
}

NSRect NSAccessibilityElement::accessibilityFrame() const {
  const auto view = as<NSView>(accessibilityParent());
  const auto window = view ? view->window() : nullptr;
  const auto frame = accessibilityFrameInParentSpace();
  if (!frame || !window) return NSAccessibility::accessibilityFrame();
  const NSRect inWindow = view->convertRectTo(*frame, nullptr);
  return {window->convertPointToScreen(inWindow.origin), inWindow.size};
}

NSRect NSAccessibilityElement::accessibilityVisibleFrame() const {
  // Only views cut off what reaches beyond them.
  auto parent = accessibilityParent();
  while (const auto element = as<NSAccessibilityElement>(parent)) parent = element->accessibilityParent();
  const NSRect frame = accessibilityFrame();
  return parent ? NSIntersectionRect(frame, parent->accessibilityVisibleFrame()) : frame;
}

}  // namespace bkuk
