#include "BrenvikUIKit/style/BKUKStatefulColors.h"

#include "platform/foundation/Permanent.h"

namespace bkuk {

const BKUKStatefulColors& BKUKStatefulPresets<Ref<NSColor>>::clear() {
  static const auto& colors = permanent([] { return BKUKStatefulColors(NSColor::clear()); });
  return colors;
}

}  // namespace bkuk
