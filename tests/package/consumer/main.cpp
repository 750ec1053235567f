#include "Values.h"
#include "testing/VirtualHostScope.h"

using namespace bkuk;

struct Palette : BKUKThemeColorsProvider {
  Ref<NSColor> color(BKUKThemeColorRole) const override {
    return make<BKUKThemedColor>(NSColor::white(), NSColor::black());
  }
};

/// Passes when a role of an installed palette follows the desktop's appearance, and the rest of the interface
/// works as a program writes it.
int main() {
  const VirtualHostScope host;
  BKUKTheme::setDefault(make<Palette>());
  host->setAppearance({.scheme = host::ColorScheme::dark});
  host->settle();
  const bool follows = NSColor::bkuk::accent()->whiteComponent() == 0;
  return follows && countValues() > 0 && componentsTakeBraces() && applicationsNeedNoOtherHeader() ? 0 : 1;
}
