#pragma once

#include "platform/appkit/drawing/NSColor.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// The shadow of a view. Lengths are in points, y up.
struct BKUKShadowSettings {
  Ref<NSColor> color = NSColor::clear();
  CGFloat radius = 0;  ///< of the blur
  CGSize offset{};
  CGFloat opacity = 1;  ///< takes the place of the colour's own alpha

  [[nodiscard]] static const BKUKShadowSettings& noShadow();

  /// Whether there is anything to see: another colour than `NSColor::clear()`, a radius and an opacity above
  /// 0.
  [[nodiscard]] bool isVisible() const;

  bool operator==(const BKUKShadowSettings& other) const;
};

}  // namespace bkuk
