#include "platform/appkit/NSWorkspace.h"

#include "host/Host.h"

namespace bkuk {

bool NSWorkspace::accessibilityDisplayShouldReduceMotion() {
  return host::current().appearance().reducedMotion;
}

bool NSWorkspace::accessibilityDisplayShouldIncreaseContrast() {
  return host::current().appearance().highContrast;
}

}  // namespace bkuk
