// What a view tells assistive clients.

#include "platform/appkit/NSView.h"

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityRecord.h"

namespace bkuk {

std::string NSView::accessibilityIdentifier() const {
  auto own = NSResponder::accessibilityIdentifier();
  return own.empty() ? identifier() : own;
}

bool NSView::isAccessibilityHidden() const {
  return AccessibilityRecord::resolved(accessibilityRecord().isHidden, isHidden());
}

bool NSView::isAccessibilityFocused() const {
  const auto window = this->window();
  return window && window->isKeyWindow() && window->firstResponder().get() == this;
}

bool NSView::accessibilityPerformFocus() {
  const auto window = this->window();
  if (!window || !isAccessibilityFocusable() || isHiddenOrHasHiddenAncestor()) return false;
  if (!window->isKeyWindow()) window->makeKey();
  return window->makeFirstResponder(this) && window->firstResponder().get() == this;
}

std::vector<Ref<NSAccessibility>> NSView::accessibilityChildren() const {
  const auto& place = accessibilityRecord().place;
  if (place && place->children) return *place->children;
  return {subviews().begin(), subviews().end()};
}

Ref<NSAccessibility> NSView::accessibilityParent() const {
  if (auto own = NSResponder::accessibilityParent()) return own;
  const auto window = this->window();
  const auto parent = superview();
  // The root of the window's views is nobody's business.
  if (window && (!parent || window->contentView().get() == this)) return window;
  return parent;
}

NSRect NSView::accessibilityFrame() const {
  const auto window = this->window();
  const auto& place = accessibilityRecord().place;
  if (!window || (place && place->frame)) return NSResponder::accessibilityFrame();
  const NSRect inWindow = convertRectTo(bounds(), nullptr);
  return {window->convertPointToScreen(inWindow.origin), inWindow.size};
}

NSRect NSView::accessibilityVisibleFrame() const {
  const auto window = this->window();
  if (!window) return {};
  NSRect shown = bounds();
  for (Ref<const NSView> each(this); each && !shown.isEmpty();) {
    if (each->layer_ && each->layer_->masksToBounds()) shown = NSIntersectionRect(shown, each->bounds());
    const Ref<const NSView> parent = each->superview_.lock();
    if (!parent) break;
    shown = each->convertRectTo(shown, parent.get());
    each = parent;
  }
  shown = NSIntersectionRect(shown, {{}, window->frame().size});
  return {window->convertPointToScreen(shown.origin), shown.size};
}

}  // namespace bkuk
