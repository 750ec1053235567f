#pragma once

#include <limits>

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// The box around points as they come; coordinates that are no numbers leave it as it is.
class PointBox {
 public:
  void include(CGPoint point) {
    if (point.x < minX_) minX_ = point.x;
    if (point.x > maxX_) maxX_ = point.x;
    if (point.y < minY_) minY_ = point.y;
    if (point.y > maxY_) maxY_ = point.y;
  }
  void include(const CGRect& rect) {
    include(CGPoint{rect.minX(), rect.minY()});
    include(CGPoint{rect.maxX(), rect.maxY()});
  }

  /// Null when nothing was included.
  [[nodiscard]] CGRect rect() const {
    if (!(minX_ <= maxX_ && minY_ <= maxY_)) return CGRect::null;
    return {minX_, minY_, maxX_ - minX_, maxY_ - minY_};
  }

 private:
  static constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
  CGFloat minX_ = infinity;
  CGFloat minY_ = infinity;
  CGFloat maxX_ = -infinity;
  CGFloat maxY_ = -infinity;
};

}  // namespace bkuk
