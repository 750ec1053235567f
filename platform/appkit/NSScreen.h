#pragma once

#include <vector>

#include "platform/foundation/NSGeometry.h"

namespace bkuk {

/// One screen of the desktop. Screen space is in points with y up, its origin at the lower left corner
/// of the main screen.
struct NSScreen {
  NSRect frame{};
  NSRect visibleFrame{};  ///< without the desktop's panels and docks
  CGFloat backingScaleFactor = 1;

  /// The main screen first; never empty.
  [[nodiscard]] static std::vector<NSScreen> screens();
  /// The screen whose space's origin all others share.
  [[nodiscard]] static NSScreen main();

  bool operator==(const NSScreen&) const = default;
};

/// Turns the host's screen space, y down from the main screen's upper left corner, into ours and back:
/// the map is its own inverse.
[[nodiscard]] NSRect NSScreenFlipped(const NSRect& rect);

}  // namespace bkuk
