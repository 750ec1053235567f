#include "platform/appkit/NSCursor.h"

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSWindow.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

Ref<NSCursor>& currentCursor() {
  static auto& cursor = *new Ref<NSCursor>(NSCursor::arrow());
  return cursor;
}

}  // namespace

const Ref<NSCursor>& NSCursor::arrow() {
  static const auto& cursor = permanent([] { return make<NSCursor>(host::CursorShape::arrow); });
  return cursor;
}

const Ref<NSCursor>& NSCursor::pointingHand() {
  static const auto& cursor = permanent([] { return make<NSCursor>(host::CursorShape::pointingHand); });
  return cursor;
}

const Ref<NSCursor>& NSCursor::IBeam() {
  static const auto& cursor = permanent([] { return make<NSCursor>(host::CursorShape::iBeam); });
  return cursor;
}

const Ref<NSCursor>& NSCursor::current() { return currentCursor(); }

void NSCursor::set() {
  if (currentCursor() == this) return;
  currentCursor() = this;
  for (const auto& window : NSApplication::shared().windows()) window->showCursor(*this);
}

}  // namespace bkuk
