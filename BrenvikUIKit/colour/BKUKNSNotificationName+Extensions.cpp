#include "BrenvikUIKit/colour/BKUKNSNotificationName+Extensions.h"

namespace bkuk {

NSNotificationName appAppearanceChanged() {
  static const NSNotificationName name("AppAppearanceChanged");
  return name;
}

}  // namespace bkuk
