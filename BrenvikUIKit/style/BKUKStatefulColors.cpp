#include "BrenvikUIKit/style/BKUKStatefulColors.h"

namespace bkuk {

const BKUKStatefulColors& BKUKStatefulPresets<Ref<NSColor>>::clear() {
  static const auto& colors = *new BKUKStatefulColors(NSColor::clear());
  return colors;
}

}  // namespace bkuk
