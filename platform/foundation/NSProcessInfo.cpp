#include "platform/foundation/NSProcessInfo.h"

#include "host/Host.h"
#include "host/Settings.h"

namespace bkuk {

NSProcessInfo& NSProcessInfo::processInfo() {
  static NSProcessInfo info;
  return info;
}

bool NSProcessInfo::isOperatingSystemAtLeast(int major, int minor) const {
  return host::current().settings().systemVersion() >= host::SystemVersion{major, minor};
}

}  // namespace bkuk
