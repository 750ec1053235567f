#include "platform/foundation/NSRunLoopObserver.h"

#include "platform/foundation/NSRunLoop.h"

namespace bkuk {

void NSRunLoopObserver::invalidate() {
  if (!std::exchange(isValid_, false)) return;
  NSRunLoop::main().remove(*this);
}

}  // namespace bkuk
