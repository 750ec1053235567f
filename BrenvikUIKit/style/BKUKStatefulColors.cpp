#include "BrenvikUIKit/style/BKUKStatefulColors.h"

namespace bkuk {

template <>
const BKUKStatefulColors& BKUKStatefulColors::clear() {
  static const auto& colors = *new BKUKStatefulColors(NSColor::clear());
  return colors;
}

}  // namespace bkuk
