#include "BrenvikUIKit/interaction/BKUKPanel.h"

#include "BrenvikUIKit/interaction/FirstResponderChange.h"

namespace bkuk {

void BKUKPanel::didInit() {
  NSPanel::didInit();
  keyMonitorStack_ = make<BKUKKeyMonitorStack>(this);
  setAutorecalculatesKeyViewLoop(true);
}

bool BKUKPanel::makeFirstResponder(NSResponder* responder) {
  const Ref<BKUKPanel> self(this);
  const Ref<NSResponder> passedIn(responder);
  const bool isDone = NSPanel::makeFirstResponder(responder);
  announceFirstResponderChange(*this, passedIn.get());
  return isDone;
}

}  // namespace bkuk
