#pragma once

#include <span>
#include <vector>

#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

/// A few disjoint rectangles that hold everything added to them, and not much more.
class DamageRegion {
 public:
  void add(PixelRect rect);
  void clear() { rects_.clear(); }
  [[nodiscard]] bool isEmpty() const { return rects_.empty(); }
  [[nodiscard]] std::span<const PixelRect> rects() const { return rects_; }

 private:
  std::vector<PixelRect> rects_;
};

}  // namespace bkuk
