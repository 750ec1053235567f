#include "platform/appkit/NSResponder.h"

#include "host/Desktop.h"
#include "host/Host.h"

namespace bkuk {

void NSResponder::passOn(void (NSResponder::*operation)(NSEvent&), NSEvent& event) {
  if (const auto next = nextResponder()) {
    (next.get()->*operation)(event);
  } else {
    noResponderFor(event);
  }
}

void NSResponder::mouseDown(NSEvent& event) { passOn(&NSResponder::mouseDown, event); }
void NSResponder::mouseUp(NSEvent& event) { passOn(&NSResponder::mouseUp, event); }
void NSResponder::mouseDragged(NSEvent& event) { passOn(&NSResponder::mouseDragged, event); }
void NSResponder::mouseMoved(NSEvent& event) { passOn(&NSResponder::mouseMoved, event); }
void NSResponder::mouseEntered(NSEvent& event) { passOn(&NSResponder::mouseEntered, event); }
void NSResponder::mouseExited(NSEvent& event) { passOn(&NSResponder::mouseExited, event); }
void NSResponder::rightMouseDown(NSEvent& event) { passOn(&NSResponder::rightMouseDown, event); }
void NSResponder::rightMouseUp(NSEvent& event) { passOn(&NSResponder::rightMouseUp, event); }
void NSResponder::rightMouseDragged(NSEvent& event) { passOn(&NSResponder::rightMouseDragged, event); }
void NSResponder::scrollWheel(NSEvent& event) { passOn(&NSResponder::scrollWheel, event); }
void NSResponder::cursorUpdate(NSEvent& event) { passOn(&NSResponder::cursorUpdate, event); }
void NSResponder::keyDown(NSEvent& event) { passOn(&NSResponder::keyDown, event); }
void NSResponder::keyUp(NSEvent& event) { passOn(&NSResponder::keyUp, event); }
void NSResponder::flagsChanged(NSEvent& event) { passOn(&NSResponder::flagsChanged, event); }

bool NSResponder::performKeyEquivalent(NSEvent&) { return false; }

void NSResponder::noResponderFor(NSEvent& event) {
  if (event.type() == NSEventType::keyDown) host::current().desktop().beep();
}

}  // namespace bkuk
