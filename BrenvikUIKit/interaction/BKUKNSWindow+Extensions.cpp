#include "BrenvikUIKit/interaction/BKUKNSWindow+Extensions.h"

#include <utility>

#include "BrenvikUIKit/interaction/BKUKPanel.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

BKUKKeyMonitorStack& stackOf(NSWindow& window) {
  Ref<BKUKKeyMonitorStack> stack;
  if (auto* kitWindow = dynamic_cast<BKUKWindow*>(&window)) {
    stack = kitWindow->keyMonitorStack();
  } else if (auto* panel = dynamic_cast<BKUKPanel*>(&window)) {
    stack = panel->keyMonitorStack();
  } else {
    fatal(window.className() + " does not support key monitor.", "BrenvikUIKit/BKUKWindow");
  }
  if (!stack)
    trap(window.className() + ": keyMonitorStack() answers none; answer the stack of the base class");
  return *stack;
}

}  // namespace

void appendKeyMonitor(NSWindow& window, Ref<BKUKKeyMonitor> monitor) {
  stackOf(window).append(std::move(monitor));
}

void removeKeyMonitor(NSWindow& window, const BKUKKeyMonitor* monitor) { stackOf(window).remove(monitor); }

void removeAllKeyMonitors(NSWindow& window) { stackOf(window).removeAll(); }

}  // namespace bkuk
