// Counts as long as the control is held, by pointer or space key.

#include <BrenvikUIKit/BrenvikUIKit.h>
#include <cstdio>

using namespace bkuk;

struct Trigger : BKUKTriggerView {
  using BKUKTriggerView::BKUKTriggerView;
  void draw(NSRect) override {
    (state() == States::pressed ? NSColor::gray() : NSColor::black())->set();
    NSBezierPath::roundedRect(bounds(), 10, 10)->fill();
  }
};

int main() {
  auto window = make<BKUKWindow>(NSRect(0, 0, 320, 160));
  auto trigger = make<Trigger>(NSRect(130, 50, 60, 60));
  trigger->setAccessibilityRole(NSAccessibilityButtonRole);
  trigger->setAccessibilityLabel("Count");
  trigger->setActionBlock([count = 0](BKUKTriggerView&) mutable { std::printf("%d\n", ++count); });
  window->contentView()->addSubview(trigger);
  window->center();
  window->makeKeyAndOrderFront();
  NSApplication::shared().run();
}
