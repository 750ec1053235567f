#include "platform/quartzcore/compositor/SublayerIndex.h"

#include <algorithm>

#include "platform/quartzcore/LayerAccess.h"

namespace bkuk {

bool SublayerIndex::update(const CALayer& layer, bool mayBeRaised) {
  const auto& list = layer.sublayers();
  if (boxes_.size() == list.size()) return mayBeRaised;
  if (!mayBeRaised) {
    for (std::size_t i = boxes_.size(); i < list.size(); ++i) append(*list[i]);
    return false;
  }
  boxes_.truncate(0);
  raised_.clear();
  appendInPaintingOrder(layer, raised_);
  for (const auto* sublayer : raised_) append(*sublayer);
  const bool isRaised = std::ranges::any_of(list, [](const auto& each) { return each->zPosition() != 0; });
  if (!isRaised) raised_.clear();
  return isRaised;
}

void SublayerIndex::append(const CALayer& sublayer) {
  boxes_.append(boxOf(LayerAccess::record(sublayer).subtree));
}

PixelRect SublayerIndex::bounds() const {
  const auto box = boxes_.bounds();
  if (box.minX > box.maxX) return {};
  return {box.minX, box.minY, box.maxX - box.minX + 1, box.maxY - box.minY + 1};
}

}  // namespace bkuk
