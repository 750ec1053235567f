#pragma once

#include "platform/appkit/NSAccessibility.h"
#include "platform/appkit/NSEvent.h"

namespace bkuk {

/// What answers events: views, windows and the application, linked in a chain. Each event operation
/// passes on to the next responder unless it is overridden; an unhandled key-down ends in a beep,
/// everything else vanishes.
class NSResponder : public NSAccessibility {
 public:
  /// Who is asked when this one does not answer; none at the end of the chain.
  [[nodiscard]] virtual Ref<NSResponder> nextResponder() const { return nullptr; }

  /// Whether this may become first responder by a click or the keyboard. Asked by whoever calls
  /// `NSWindow::makeFirstResponder`, not by that operation.
  [[nodiscard]] virtual bool acceptsFirstResponder() const { return false; }
  /// Called by the window when this becomes first responder; false refuses.
  virtual bool becomeFirstResponder() { return true; }
  /// Called by the window when another is to become first responder; false refuses to let go.
  virtual bool resignFirstResponder() { return true; }

  virtual void mouseDown(NSEvent& event);
  virtual void mouseUp(NSEvent& event);
  virtual void mouseDragged(NSEvent& event);
  virtual void mouseMoved(NSEvent& event);
  virtual void mouseEntered(NSEvent& event);
  virtual void mouseExited(NSEvent& event);
  virtual void rightMouseDown(NSEvent& event);
  virtual void rightMouseUp(NSEvent& event);
  virtual void rightMouseDragged(NSEvent& event);
  virtual void scrollWheel(NSEvent& event);
  virtual void cursorUpdate(NSEvent& event);
  virtual void keyDown(NSEvent& event);
  virtual void keyUp(NSEvent& event);
  virtual void flagsChanged(NSEvent& event);

  /// Offers a key-down with the command key to this responder; true when it took it.
  virtual bool performKeyEquivalent(NSEvent& event);

  /// Called when no responder of the chain answered `event`.
  virtual void noResponderFor(NSEvent& event);

 private:
  void passOn(void (NSResponder::*operation)(NSEvent&), NSEvent& event);
};

}  // namespace bkuk
