#include "BrenvikUIKit/colour/DarkAppearanceSupport.h"

#include "platform/foundation/NSProcessInfo.h"

namespace bkuk {

bool systemKnowsDarkAppearance() { return NSProcessInfo::processInfo().isOperatingSystemAtLeast(10, 14); }

}  // namespace bkuk
