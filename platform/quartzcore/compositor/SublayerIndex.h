#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

class CALayer;

/// Where the many sublayers of one layer are, side by side in memory, so that painting a small part of it
/// need not ask each of them. True from the update that made it to the next.
class SublayerIndex {
 public:
  /// From how many sublayers on it pays to have one.
  static constexpr std::size_t worthwhileCount = 32;

  explicit SublayerIndex(const CALayer& layer);

  [[nodiscard]] std::size_t count() const { return layers_.size(); }
  /// The device pixels of all.
  [[nodiscard]] const PixelRect& bounds() const { return bounds_; }

  /// Calls `visit` with those that may touch `area`, the front one first.
  template <typename Visit>
  void forTouching(const PixelRect& area, Visit&& visit) const {
    if (area.isEmpty()) return;
    const Edges wanted = edgesOf(area);
    for (std::size_t group = groups_.size(); group-- > 0;) {
      if (!groups_[group].touch(wanted)) continue;
      const std::size_t begin = group * groupLength;
      for (std::size_t i = std::min(begin + groupLength, edges_.size()); i-- > begin;) {
        if (edges_[i].touch(wanted)) visit(*layers_[i]);
      }
    }
  }

 private:
  struct Edges {
    int minX, minY, maxX, maxY;

    [[nodiscard]] bool touch(const Edges& other) const {
      return minY < other.maxY && other.minY < maxY && minX < other.maxX && other.minX < maxX;
    }
  };

  // Nothing touches those of an empty rectangle.
  [[nodiscard]] static Edges edgesOf(const PixelRect& rect);

  // Neighbours in the list are mostly neighbours on the screen, so most groups are passed over as a whole.
  static constexpr std::size_t groupLength = 32;

  std::vector<Edges> edges_;   // in painting order
  std::vector<Edges> groups_;  // around as many of them each
  std::vector<CALayer*> layers_;
  PixelRect bounds_;
};

}  // namespace bkuk
