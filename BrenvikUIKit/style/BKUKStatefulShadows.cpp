#include "BrenvikUIKit/style/BKUKStatefulShadows.h"

namespace bkuk {

template <>
const BKUKStatefulShadows& BKUKStatefulShadows::noShadow() {
  static const auto& shadows = *new BKUKStatefulShadows(BKUKShadowSettings::noShadow());
  return shadows;
}

}  // namespace bkuk
