#include "BrenvikUIKit/style/BKUKStatefulNumbers.h"

namespace bkuk {

const BKUKStatefulOpacities& BKUKStatefulPresets<float>::basicImageButton() {
  static const BKUKStatefulOpacities opacities(0.7F, 1.0F, 0.4F, 0.2F);
  return opacities;
}

}  // namespace bkuk
