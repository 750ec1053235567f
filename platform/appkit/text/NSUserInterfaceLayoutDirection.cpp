#include "platform/appkit/text/NSUserInterfaceLayoutDirection.h"

#include "host/Host.h"

namespace bkuk {

namespace {

constinit std::optional<NSUserInterfaceLayoutDirection> chosen;

}  // namespace

NSUserInterfaceLayoutDirection interfaceLayoutDirection() {
  if (chosen) return *chosen;
  return host::current().layoutDirection() == host::TextDirection::rightToLeft
             ? NSUserInterfaceLayoutDirection::rightToLeft
             : NSUserInterfaceLayoutDirection::leftToRight;
}

void setInterfaceLayoutDirection(std::optional<NSUserInterfaceLayoutDirection> direction) {
  chosen = direction;
}

}  // namespace bkuk
