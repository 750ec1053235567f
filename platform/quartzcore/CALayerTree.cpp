// The part of CALayer that holds the tree together and carries marks up through it.

#include <algorithm>
#include <limits>

#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CARenderer.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerChildren.h"
#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

namespace {

constexpr auto unit = "CALayer";
constexpr auto atTheEnd = std::numeric_limits<std::size_t>::max();

}  // namespace

const std::vector<Ref<CALayer>>& CALayer::sublayers() const {
  static const auto& none = *new std::vector<Ref<CALayer>>;
  return children_ ? children_->list.all() : none;
}

CALayer::Children& CALayer::children() {
  if (!children_) children_ = std::make_unique<Children>();
  return *children_;
}

bool CALayer::isDescendantOf(const CALayer* other) const {
  for (const auto* layer = this; layer; layer = layer->container_) {
    if (layer == other) return true;
  }
  return false;
}

void CALayer::addSublayer(const Ref<CALayer>& layer) { insert(layer, atTheEnd); }

void CALayer::insertSublayer(const Ref<CALayer>& layer, std::size_t index) { insert(layer, index); }

void CALayer::insertSublayerBelow(const Ref<CALayer>& layer, const CALayer& sibling) {
  if (layer == &sibling) return;
  layer->removeFromSuperlayer();
  insert(layer, sibling.superlayer() == this ? children_->list.indexOf(sibling) : 0);
}

void CALayer::insertSublayerAbove(const Ref<CALayer>& layer, const CALayer& sibling) {
  if (layer == &sibling) return;
  layer->removeFromSuperlayer();
  insert(layer, sibling.superlayer() == this ? children_->list.indexOf(sibling) + 1 : atTheEnd);
}

void CALayer::replaceSublayer(const CALayer& old, const Ref<CALayer>& replacement) {
  if (old.superlayer() != this || replacement == &old) return;
  const Ref<CALayer> leaving(const_cast<CALayer*>(&old));
  insertSublayerAbove(replacement, old);
  leaving->removeFromSuperlayer();
}

void CALayer::setSublayers(std::vector<Ref<CALayer>> sublayers) {
  const auto present = this->sublayers();
  for (auto layer = present.rbegin(); layer != present.rend(); ++layer) (*layer)->removeFromSuperlayer();
  for (const auto& layer : sublayers) addSublayer(layer);
}

void CALayer::removeFromSuperlayer() {
  if (!isMask_) detachFromContainer();
}

void CALayer::insert(const Ref<CALayer>& layer, std::size_t index) {
  const bool mayHoldThis = !layer->sublayers().empty() || layer->mask() || layer == this;
  if (mayHoldThis && isDescendantOf(layer.get())) fatal("a layer cannot be its own sublayer", unit);
  const Ref<CALayer> moved(layer);
  moved->detachFromContainer();
  auto& own = children();
  own.insert(moved, std::min(index, own.list.size()));
  attach(*moved, false);
}

void CALayer::attach(CALayer& layer, bool asMask) {
  ++treeVersion_;
  if (layer.renderer_) layer.renderer_->setLayer(nullptr);
  layer.container_ = this;
  layer.isMask_ = asMask;
  layer.marks_.renderBelow = false;
  layer.markRender(Effect::rearrange);
  if (!layer.marks_.commitBelow) return;
  if (!asMask) children_->toCommit.add(layer);
  markCommit();
}

void CALayer::detachFromContainer() {
  if (!container_) return;
  ++treeVersion_;
  const Ref<CALayer> self(this);
  auto& container = *std::exchange(container_, nullptr);
  if (std::exchange(isMask_, false)) {
    container.rare_->mask = nullptr;
    container.markRender(Effect::rearrange);
    return;
  }
  container.children_->erase(*this);
  container.record_.left = unite(container.record_.left, record_.subtree);
  record_ = {};
  container.markRender(container.record_.shadowFollowsBelow ? Effect::rearrange : Effect::none);
}

void CALayer::setMask(Ref<CALayer> mask) {
  if (mask == this->mask()) return;
  const Ref<CALayer> self(this);
  const Ref<CALayer> entering = std::move(mask);
  if (entering && entering->superlayer()) fatal("a mask cannot have a superlayer", unit);
  if (entering && isDescendantOf(entering.get())) fatal("a layer cannot be its own mask", unit);
  if (entering) entering->detachFromContainer();
  const auto leaving = this->mask();
  change("mask", ownRare().mask, entering, Effect::rearrange);
  if (leaving && leaving->container_ == this) {
    ++treeVersion_;
    leaving->container_ = nullptr;
    leaving->isMask_ = false;
  }
  if (entering) attach(*entering, true);
}

void CALayer::markCommit() {
  for (auto* layer = this; !layer->marks_.commitBelow; layer = layer->container_) {
    layer->marks_.commitBelow = true;
    if (auto* container = layer->container_) {
      if (!layer->isMask_) container->children_->toCommit.add(*layer);
      continue;
    }
    if (layer->renderer_) layer->renderer_->treeDidChange();
    return;
  }
}

void CALayer::markRender(Effect effect) {
  if (effect == Effect::repaint) marks_.repaint = true;
  if (effect == Effect::rearrange) marks_.rearrange = true;
  for (auto* layer = this; !layer->marks_.renderBelow; layer = layer->container_) {
    layer->marks_.renderBelow = true;
    auto* container = layer->container_;
    if (!container) {
      if (layer->renderer_) layer->renderer_->treeDidChange();
      return;
    }
    if (!layer->isMask_) container->children_->toRender.add(*layer);
    if (layer->isMask_ || container->record_.shadowFollowsBelow) container->marks_.rearrange = true;
  }
}

void appendInPaintingOrder(const CALayer& layer, std::vector<CALayer*>& out) {
  const auto first = static_cast<std::ptrdiff_t>(out.size());
  bool isSorted = true;
  for (const auto& sublayer : layer.sublayers()) {
    if (sublayer->zPosition() != 0) isSorted = false;
    out.push_back(sublayer.get());
  }
  if (isSorted) return;
  // A NaN must not disturb the order of the others.
  const auto depth = [](const CALayer* sublayer) {
    const auto z = sublayer->zPosition();
    return z == z ? z : 0;
  };
  std::ranges::stable_sort(out.begin() + first, out.end(), {}, depth);
}

}  // namespace bkuk
