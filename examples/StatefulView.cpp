// A button in ten lines: its colour goes with the state that pointer and keyboard bring it to.

#include <BrenvikUIKit/BrenvikUIKit.h>
#include <cstdio>

using namespace bkuk;

struct Button : BKUKStatefulView {
  using BKUKStatefulView::BKUKStatefulView;
  BKUKStatefulColors colors{rgb(0x1F6FEB, 1), rgb(0x3D86F2, 1), rgb(0x1457C0, 1), rgb(0x9AA4B2, 1)};

  void updateLayer() override {
    BKUKStatefulView::updateLayer();
    layer()->setCornerRadius(8);
    layer()->setBackgroundColor(colors[state()]->cgColor());
  }
};

int main() {
  auto window = make<BKUKWindow>(NSRect(0, 0, 320, 160));
  auto button = make<Button>(NSRect(110, 60, 100, 40));
  button->setAccessibilityRole(NSAccessibilityButtonRole);
  button->setAccessibilityLabel("Greet");
  button->focus()->setDrawFocusRing(false);  // leave that to the platform
  button->setActionBlock([](BKUKStatefulView&) { std::puts("Hello"); });
  window->contentView()->addSubview(button);
  window->center();
  window->makeKeyAndOrderFront();
  NSApplication::shared().run();
}
