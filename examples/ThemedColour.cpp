// A window that follows the desktop between light and dark.

#include <BrenvikUIKit/BrenvikUIKit.h>

using namespace bkuk;

struct Palette : BKUKThemeColorsProvider {
  Ref<NSColor> color(BKUKThemeColorRole role) const override {
    if (role == BKUKThemeColorRole::accent) return make<BKUKThemedColor>(rgb(0x1F6FEB, 1), rgb(0x7FB2FF, 1));
    return make<BKUKThemedColor>(rgb(0xF6F7F9, 1), rgb(0x16181D, 1));
  }
};

struct Plate : NSView {
  void draw(NSRect) override {
    NSColor::bkuk::accent()->set();
    NSRectFill(NSInsetRect(bounds(), 40, 40));
  }
};

int main() {
  BKUKTheme::setDefault(make<Palette>());
  auto window = make<NSWindow>(NSRect(0, 0, 480, 300));
  window->setTitle("Hello");
  window->setBackgroundColor(NSColor::bkuk::background());
  window->setContentView(make<Plate>());
  window->center();
  window->makeKeyAndOrderFront();
  NSApplication::shared().run();
}
