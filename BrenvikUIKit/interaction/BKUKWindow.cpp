#include "BrenvikUIKit/interaction/BKUKWindow.h"

#include "BrenvikUIKit/interaction/FirstResponderChange.h"

namespace bkuk {

void BKUKWindow::didInit() {
  NSWindow::didInit();
  keyMonitorStack_ = make<BKUKKeyMonitorStack>(this);
  setAutorecalculatesKeyViewLoop(true);
}

bool BKUKWindow::makeFirstResponder(NSResponder* responder) {
  const Ref<BKUKWindow> self(this);
  const Ref<NSResponder> passedIn(responder);
  const bool isDone = NSWindow::makeFirstResponder(responder);
  announceFirstResponderChange(*this, passedIn.get());
  return isDone;
}

}  // namespace bkuk
