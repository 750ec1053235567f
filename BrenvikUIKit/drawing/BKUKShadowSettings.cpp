#include "BrenvikUIKit/drawing/BKUKShadowSettings.h"

#include "BrenvikUIKit/drawing/ColorEquality.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

const BKUKShadowSettings& BKUKShadowSettings::noShadow() {
  static const auto& settings = permanent([] { return BKUKShadowSettings(); });
  return settings;
}

bool BKUKShadowSettings::isVisible() const {
  return color && !color->isEqual(NSColor::clear().get()) && opacity > 0 && radius > 0;
}

bool BKUKShadowSettings::operator==(const BKUKShadowSettings& other) const {
  return areEqual(color, other.color) && radius == other.radius && offset == other.offset &&
         opacity == other.opacity;
}

}  // namespace bkuk
