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

 private:
  using Set = std::vector<PixelRect>;

  std::vector<Set> sets_;
};

}  // namespace bkuk
