#include "platform/appkit/text/NSUserInterfaceLayoutDirection.h"

#include "host/Host.h"
#include "host/Settings.h"

namespace bkuk {

namespace {

constinit std::optional<NSUserInterfaceLayoutDirection> chosen;

}  // namespace

NSUserInterfaceLayoutDirection interfaceLayoutDirection() {
  if (chosen) return *chosen;
  return host::current().settings().layoutDirection() == host::TextDirection::rightToLeft
             ? NSUserInterfaceLayoutDirection::rightToLeft
             : NSUserInterfaceLayoutDirection::leftToRight;
}

void setInterfaceLayoutDirection(std::optional<NSUserInterfaceLayoutDirection> direction) {
  chosen = direction;
}

}  // namespace bkuk
