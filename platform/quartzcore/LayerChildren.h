#pragma once

#include <memory>

#include "platform/foundation/SiblingList.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/compositor/SublayerIndex.h"

namespace bkuk {

/// What a layer with sublayers keeps about them.
struct CALayer::Children {
  SiblingList<CALayer, &CALayer::place_> list;
  /// Each stands here as long as its mark, so that finding one of a thousand does not ask them all.
  MarkedChildren<CALayer, &CALayer::commitPlace_> toCommit;
  MarkedChildren<CALayer, &CALayer::renderPlace_> toRender;
  /// Some may have a zPosition, which brings them into another order than that of the list.
  bool mayBeRaised = false;
  /// Where they are, if they are many.
  std::unique_ptr<SublayerIndex> index;

  void insert(const Ref<CALayer>& layer, std::size_t at) {
    if (index) index->forgetFrom(at);
    if (layer->values_.zPosition != 0) mayBeRaised = true;
    list.insert(layer, at);
  }
  void erase(CALayer& layer) {
    const auto at = list.indexOf(layer);
    if (index) index->forgetFrom(at);
    toCommit.remove(layer);
    toRender.remove(layer);
    list.erase(at);
  }
};

}  // namespace bkuk
