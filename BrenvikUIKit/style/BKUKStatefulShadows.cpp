#include "BrenvikUIKit/style/BKUKStatefulShadows.h"

namespace bkuk {

template <typename T>
const BKUKStatefulSettings<T>& BKUKStatefulSettings<T>::noShadow() requires
    std::same_as<T, BKUKShadowSettings> {
  static const auto& shadows = *new BKUKStatefulSettings(T::noShadow());
  return shadows;
}

template const BKUKStatefulShadows& BKUKStatefulSettings<BKUKShadowSettings>::noShadow();

}  // namespace bkuk
