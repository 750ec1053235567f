#include "BrenvikUIKit/style/BKUKStatefulShadows.h"

#include "platform/foundation/Permanent.h"

namespace bkuk {

const BKUKStatefulShadows& BKUKStatefulPresets<BKUKShadowSettings>::noShadow() {
  static const auto& shadows = permanent([] { return BKUKStatefulShadows(BKUKShadowSettings::noShadow()); });
  return shadows;
}

}  // namespace bkuk
