#include "platform/foundation/NSProcessInfo.h"

#include "host/Host.h"

namespace bkuk {

NSProcessInfo& NSProcessInfo::processInfo() {
  static NSProcessInfo info;
  return info;
}

bool NSProcessInfo::isOperatingSystemAtLeast(int major, int minor) const {
  return host::current().systemVersion() >= host::SystemVersion{major, minor};
}

}  // namespace bkuk
