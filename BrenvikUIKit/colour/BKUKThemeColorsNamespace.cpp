#include "BrenvikUIKit/colour/BKUKThemeColorsNamespace.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"

namespace bkuk {

Ref<NSColor> BKUKThemeColorsNamespace::color(BKUKThemeColorRole role) { return BKUKTheme::color(role); }

}  // namespace bkuk
