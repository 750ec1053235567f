#pragma once

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

[[nodiscard]] inline bool isRightToLeft(const NSView& view) {
  return view.userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
}

/// A frame that was measured from the leading edge, as it lies in `container`.
[[nodiscard]] inline NSRect fromLeading(const NSView& container, NSRect frame) {
  if (isRightToLeft(container)) frame.origin.x = container.bounds().width() - frame.maxX();
  return frame;
}

}  // namespace bkuk::gallery
