// A dashed outline that ends on a whole dash however the window is sized.

#include <BrenvikUIKit/BrenvikUIKit.h>

using namespace bkuk;

struct Outline : NSView {
  void viewDidMoveToWindow() override {
    if (!window() || shapeLayer) return;
    shapeLayer = make<BKUKShapeLayer>();
    layer()->addSublayer(shapeLayer);
    const auto shape = shapeLayer->shape();
    shape->setPath([](BKUKShape& s) { return CGPath::rect(s.bounds().insetBy(24, 24)); });
    shape->setPathLength([](BKUKShape& s) {
      const CGRect box = s.bounds().insetBy(24, 24);
      return 2 * (box.width() + box.height());
    });
    shape->setPathLoops(true);
    shape->setStroke(rgb(0x1F6FEB, 1), 3, CGLineCap::round, CGLineJoin::round, std::vector<CGFloat>{14, 8},
                     0);
  }
  void layout() override { shapeLayer->setFrame(bounds()); }

  Ref<BKUKShapeLayer> shapeLayer;
};

int main() {
  auto window = make<NSWindow>(NSRect(0, 0, 420, 260));
  window->setBackgroundColor(NSColor::white());
  window->setContentView(make<Outline>());
  window->center();
  window->makeKeyAndOrderFront();
  NSApplication::shared().run();
}
