#include "platform/appkit/window/WindowMouseRouter.h"

#include <utility>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/window/WindowTracking.h"

namespace bkuk {

void WindowMouseRouter::send(NSEvent& event) {
  switch (event.type()) {
    case NSEventType::leftMouseDown:
      return press(event, leftTarget_, &NSResponder::mouseDown);
    case NSEventType::rightMouseDown:
      return press(event, rightTarget_, &NSResponder::rightMouseDown);
    case NSEventType::leftMouseUp:
      return release(event, leftTarget_, &NSResponder::mouseUp);
    case NSEventType::rightMouseUp:
      return release(event, rightTarget_, &NSResponder::rightMouseUp);
    case NSEventType::leftMouseDragged:
      if (const auto view = leftTarget_.lock()) view->mouseDragged(event);
      return;
    case NSEventType::rightMouseDragged:
      if (const auto view = rightTarget_.lock()) view->rightMouseDragged(event);
      return;
    case NSEventType::mouseMoved:
      return move(event);
    case NSEventType::mouseEntered:
    case NSEventType::mouseExited:
    case NSEventType::cursorUpdate:
      return WindowTracking::deliver(event);
    case NSEventType::scrollWheel:
      if (const auto view = viewAt(event.locationInWindow())) view->scrollWheel(event);
      return;
    default:
      return;
  }
}

void WindowMouseRouter::forget(const NSView& view) {
  if (leftTarget_.refersTo(&view)) leftTarget_ = nullptr;
  if (rightTarget_.refersTo(&view)) rightTarget_ = nullptr;
}

void WindowMouseRouter::move(NSEvent& event) {
  window_.tracking_->sendMoved(event);
  if (window_.acceptsMouseMovedEvents()) window_.firstResponder()->mouseMoved(event);
}

void WindowMouseRouter::press(NSEvent& event, Weak<NSView>& target, Operation operation) {
  const auto view = viewAt(event.locationInWindow());
  const bool bringsKey =
      !window_.isKeyWindow() && window_.canBecomeKey() && window_.becomesKeyByClick(view.get());
  target = nullptr;
  if (bringsKey) window_.makeKey();
  if (!view || (bringsKey && !view->acceptsFirstMouse(event)) || view->window() != &window_) return;
  target = view.get();
  if (event.type() == NSEventType::leftMouseDown) focusByClick(*view);
  // Whoever was told of the keyboard may have taken the view out.
  if (target.refersTo(view.get())) (view.get()->*operation)(event);
}

void WindowMouseRouter::release(NSEvent& event, Weak<NSView>& target, Operation operation) {
  if (const auto view = std::exchange(target, nullptr).lock()) (view.get()->*operation)(event);
}

void WindowMouseRouter::focusByClick(NSView& view) {
  if (view.takesFocusOnClick() && window_.firstResponder() != &view) window_.giveKeyboardByClick(view);
}

Ref<NSView> WindowMouseRouter::viewAt(NSPoint point) const { return window_.frameView_->hitTest(point); }

}  // namespace bkuk
