#include "BrenvikUIKit/colour/BKUKNSNotificationName+Extensions.h"

namespace bkuk {

NSNotificationName appAppearanceChanged() {
  static const auto& name = *new NSNotificationName("AppAppearanceChanged");
  return name;
}

}  // namespace bkuk
