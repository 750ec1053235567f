#pragma once

#include <vector>

#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

/// The opaque rectangles met so far on the way from front to back, one set for each open group.
class OccluderStack {
 public:
  OccluderStack() { sets_.emplace_back(); }

  /// What lies in the group is hidden by what hides the group.
  void openGroup() { sets_.push_back(sets_.back()); }
  /// What lies in the group matters even where it is hidden.
  void openSeparateGroup() { sets_.emplace_back(); }
  void closeGroup() { sets_.pop_back(); }

  void add(const PixelRect& rect);
  [[nodiscard]] bool hides(const PixelRect& rect) const;
  /// Appends some that cover a part of `rect`.
  void appendCovers(const PixelRect& rect, std::vector<PixelRect>& covers) const;

 private:
  struct Set {
    std::vector<PixelRect> largest;
    // What comes soon above something covers most of what the largest leave.
    std::vector<PixelRect> latest;
    std::size_t next = 0;  // the place in `latest` for another one
  };

  std::vector<Set> sets_;
};

}  // namespace bkuk
