#include "BrenvikUIKit/colour/BKUKThemeColorsFusion.h"

#include "BrenvikUIKit/colour/BKUKThemedColor.h"

namespace bkuk {

Ref<NSColor> BKUKThemeColorsFusion::color(BKUKThemeColorRole role) const {
  return make<BKUKThemedColor>(light().color(role), dark().color(role));
}

}  // namespace bkuk
