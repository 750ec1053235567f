#pragma once

#include <algorithm>

#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

/// Corners as they lie on the device.
enum DeviceCorner : unsigned {
  upperLeft = 1,
  upperRight = 2,
  lowerLeft = 4,
  lowerRight = 8,
  allDeviceCorners = 15,
};

/// A box of whole device pixels with some corners rounded.
struct RoundedBox {
  PixelRect rect;
  double radius = 0;  ///< in device pixels
  unsigned corners = allDeviceCorners;

  bool operator==(const RoundedBox&) const = default;

  [[nodiscard]] bool isPlain() const { return corners == 0 || !(radius > 0); }
};

/// The box with its radius cut to what fits, and to 0 where it rounds nothing.
[[nodiscard]] inline RoundedBox fitted(RoundedBox box) {
  const auto most = std::min(box.rect.width, box.rect.height) / 2.0;
  box.radius = box.isPlain() ? 0 : std::min(box.radius, most);
  if (box.radius == 0) box.corners = 0;
  return box;
}

/// The box inside a border of that width; without extent where the border leaves nothing.
[[nodiscard]] inline RoundedBox insideBorder(const RoundedBox& box, int width) {
  return fitted({insetBy(box.rect, width), std::max(0.0, box.radius - width), box.corners});
}

}  // namespace bkuk
