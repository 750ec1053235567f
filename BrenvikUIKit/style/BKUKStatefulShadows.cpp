#include "BrenvikUIKit/style/BKUKStatefulShadows.h"

namespace bkuk {

const BKUKStatefulShadows& BKUKStatefulPresets<BKUKShadowSettings>::noShadow() {
  static const auto& shadows = *new BKUKStatefulShadows(BKUKShadowSettings::noShadow());
  return shadows;
}

}  // namespace bkuk
