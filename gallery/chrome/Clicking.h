#pragma once

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSEvent.h"

namespace bkuk::gallery {

/// Whether what happens now comes of a press of the mouse. Whoever presses sees where the keyboard went; who
/// comes by key has to be shown.
inline bool isClicking() {
  const auto& event = NSApplication::shared().currentEvent();
  return event && event->type() == NSEventType::leftMouseDown;
}

}  // namespace bkuk::gallery
