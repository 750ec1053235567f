#pragma once

#include "platform/appkit/NSView.h"

namespace bkuk {

/// Decides which view of a window a pointer event is for. A press goes to the front-most view under the
/// pointer, and the drags and the release that follow go to that same view, wherever the pointer is.
/// Owned by its window.
class WindowMouseRouter {
 public:
  explicit WindowMouseRouter(NSWindow& window) : window_(window) {}

  void send(NSEvent& event);
  /// A view that is taken out of the window hears no more of a press that went to it.
  void forget(const NSView& view);

 private:
  using Operation = void (NSResponder::*)(NSEvent&);

  void move(NSEvent& event);
  void press(NSEvent& event, Weak<NSView>& target, Operation operation);
  void release(NSEvent& event, Weak<NSView>& target, Operation operation);
  void focusByClick(NSView& view);
  [[nodiscard]] Ref<NSView> viewAt(NSPoint point) const;

  NSWindow& window_;
  Weak<NSView> leftTarget_;
  Weak<NSView> rightTarget_;
};

}  // namespace bkuk
