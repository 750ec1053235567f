#include <BrenvikUIKit/BrenvikUIKit.h>

#include "testing/VirtualHostScope.h"

using namespace bkuk;

struct Palette : BKUKThemeColorsProvider {
  Ref<NSColor> color(BKUKThemeColorRole) const override {
    return make<BKUKThemedColor>(NSColor::white(), NSColor::black());
  }
};

/// Passes when a role of an installed palette follows the desktop's appearance.
int main() {
  const VirtualHostScope host;
  BKUKTheme::setDefault(make<Palette>());
  host->setAppearance({.scheme = host::ColorScheme::dark});
  host->settle();
  return NSColor::bkuk::accent()->whiteComponent() == 0 ? 0 : 1;
}
