#include "BrenvikUIKit/colour/BKUKNSApplication+Extensions.h"

#include "BrenvikUIKit/colour/DarkAppearanceSupport.h"
#include "platform/appkit/NSApplication.h"

namespace bkuk {

bool isDarkMode(const NSApplication& application) {
  return systemKnowsDarkAppearance() && application.effectiveAppearance()->isDark();
}

}  // namespace bkuk
