#include "platform/appkit/NSWorkspace.h"

#include "host/Host.h"
#include "host/Settings.h"

namespace bkuk {

bool NSWorkspace::accessibilityDisplayShouldReduceMotion() {
  return host::current().settings().appearance().reducedMotion;
}

bool NSWorkspace::accessibilityDisplayShouldIncreaseContrast() {
  return host::current().settings().appearance().highContrast;
}

}  // namespace bkuk
