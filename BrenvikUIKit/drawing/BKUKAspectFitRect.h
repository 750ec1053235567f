#pragma once

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

struct BKUKAspectFitRect {
  BKUKAspectFitRect() = delete;

  /// The largest rectangle of that ratio of width to height in the middle of `frame`. A frame without width
  /// or height is answered itself.
  [[nodiscard]] static CGRect frame(const CGRect& frame, CGFloat aspect);
};

}  // namespace bkuk
