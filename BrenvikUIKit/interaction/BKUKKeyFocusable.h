#pragma once

#include "platform/foundation/NSObject.h"

namespace bkuk {

class BKUKKeyFocusController;

/// A view with a focus controller.
class BKUKKeyFocusable {
 public:
  virtual ~BKUKKeyFocusable() = default;
  [[nodiscard]] virtual const Ref<BKUKKeyFocusController>& focus() = 0;
};

}  // namespace bkuk
