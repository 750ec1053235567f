#include "BrenvikUIKit/style/BKUKStatefulNumbers.h"

namespace bkuk {

template <typename T>
const BKUKStatefulSettings<T>& BKUKStatefulSettings<T>::basicImageButton() requires std::same_as<T, float> {
  static const BKUKStatefulSettings opacities(0.7F, 1.0F, 0.4F, 0.2F);
  return opacities;
}

template const BKUKStatefulOpacities& BKUKStatefulSettings<float>::basicImageButton();

}  // namespace bkuk
