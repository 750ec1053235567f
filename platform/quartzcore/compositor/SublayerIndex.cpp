#include "platform/quartzcore/compositor/SublayerIndex.h"

#include <limits>
#include <utility>

#include "platform/quartzcore/LayerAccess.h"

namespace bkuk {

SublayerIndex::SublayerIndex(const CALayer& layer) {
  layers_.reserve(layer.sublayers().size());
  appendInPaintingOrder(layer, layers_);
  edges_.reserve(layers_.size());
  PixelRect group;
  for (auto* sublayer : layers_) {
    const auto& rect = LayerAccess::record(*sublayer).subtree;
    edges_.push_back(edgesOf(rect));
    group = unite(group, rect);
    const bool isComplete = edges_.size() % groupLength == 0 || edges_.size() == layers_.size();
    if (!isComplete) continue;
    groups_.push_back(edgesOf(group));
    bounds_ = unite(bounds_, std::exchange(group, {}));
  }
}

SublayerIndex::Edges SublayerIndex::edgesOf(const PixelRect& rect) {
  if (!rect.isEmpty()) return {rect.x, rect.y, rect.maxX(), rect.maxY()};
  constexpr int farthest = std::numeric_limits<int>::max();
  return {farthest, farthest, -farthest, -farthest};
}

}  // namespace bkuk
