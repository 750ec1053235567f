#pragma once

#include <cstddef>
#include <vector>

#include "platform/foundation/BoxTree.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

/// Where the many sublayers of one layer are, so that painting a small part of it need not ask each of them.
/// True from one update to the next.
class SublayerIndex {
 public:
  /// From how many sublayers on it pays to have one.
  static constexpr std::size_t worthwhileCount = 32;

  /// What it knows of the sublayers from that place in the list on is no longer so.
  void forgetFrom(std::size_t place) {
    if (place < boxes_.size()) boxes_.truncate(place);
  }
  /// To be called when a sublayer touches other pixels, with its place in the list.
  void set(std::size_t place, const PixelRect& rect) {
    if (place < boxes_.size()) boxes_.set(place, boxOf(rect));
  }
  /// Takes over what it does not know of the sublayers. `mayBeRaised`: they may be painted in another order
  /// than that of the list, and then all are taken over where one is not known. Answers whether they are.
  bool update(const CALayer& layer, bool mayBeRaised);

  /// The device pixels of all.
  [[nodiscard]] PixelRect bounds() const;

  /// Calls `visit` with those of the layer that may touch `area`, the front one first.
  template <typename Visit>
  void forTouching(const CALayer& layer, const PixelRect& area, Visit&& visit) const {
    if (area.isEmpty()) return;
    const auto wanted = boxOf(area);
    for (auto i = boxes_.lastTouching(wanted, boxes_.size()); i != Boxes::none;
         i = boxes_.lastTouching(wanted, i)) {
      visit(raised_.empty() ? *layer.sublayers()[i] : *raised_[i]);
    }
  }

 private:
  using Boxes = BoxTree<int>;

  void append(const CALayer& sublayer);
  // That of an empty rectangle touches nothing.
  [[nodiscard]] static Boxes::Box boxOf(const PixelRect& rect) {
    if (rect.isEmpty()) return {};
    return {rect.x, rect.y, rect.maxX() - 1, rect.maxY() - 1};
  }

  Boxes boxes_;                   // in the order of the list, or that of `raised_`
  std::vector<CALayer*> raised_;  // in painting order, where that is another
};

}  // namespace bkuk
