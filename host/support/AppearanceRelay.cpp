#include "host/support/AppearanceRelay.h"

namespace bkuk::host {

bool AppearanceRelay::dispatch() {
  if (!hasEvent()) return false;
  current_ = announced_;
  // A copy, because the handler may replace itself.
  if (const auto changed = changed_) changed();
  return true;
}

}  // namespace bkuk::host
