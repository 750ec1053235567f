#include "BrenvikUIKit/colour/BKUKNSApplication+Extensions.h"

#include <array>

#include "BrenvikUIKit/colour/DarkAppearanceSupport.h"
#include "platform/appkit/NSApplication.h"

namespace bkuk {

bool isDarkMode(const NSApplication& application) {
  static constexpr std::array candidates = {NSAppearanceNameDarkAqua, NSAppearanceNameAqua};
  if (!systemKnowsDarkAppearance()) return false;
  return application.effectiveAppearance()->bestMatch(candidates) == NSAppearanceNameDarkAqua;
}

}  // namespace bkuk
