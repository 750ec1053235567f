// The part of CALayer that says where things are.

#include <algorithm>
#include <cmath>

#include "platform/quartzcore/Autoresizing.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerGeometry.h"

namespace bkuk {

namespace {

// The box of a layer that its transform turns, in its superlayer's bounds space.
CGRect untransformedFrame(const CALayer& layer) {
  const auto& bounds = layer.bounds();
  return {layer.position().x - layer.anchorPoint().x * bounds.width(),
          layer.position().y - layer.anchorPoint().y * bounds.height(), bounds.width(), bounds.height()};
}

CALayer* frontmostHit(const CALayer& layer, CGPoint point) {
  std::vector<CALayer*> sublayers;
  appendInPaintingOrder(layer, sublayers);
  const auto hit = std::find_if(sublayers.rbegin(), sublayers.rend(), [point](const CALayer* sublayer) {
    return !sublayer->isHidden() &&
           sublayer->contains(transformToSuperlayer(*sublayer).inverted().apply(point));
  });
  return hit == sublayers.rend() ? nullptr : *hit;
}

}  // namespace

CGRect CALayer::frame() const { return transformToSuperlayer(*this).apply(values_.bounds.standardized()); }

void CALayer::setFrame(const CGRect& frame) {
  const auto box = frame.standardized();
  const Ref<CALayer> self(this);
  setPosition({box.origin.x + values_.anchorPoint.x * box.size.width,
               box.origin.y + values_.anchorPoint.y * box.size.height});
  setBounds({values_.bounds.origin, box.size});
}

void CALayer::resizeSublayers(CGSize oldSize) {
  if (!children_) return;
  const auto snapshot = sublayers();
  for (const auto& layer : snapshot) {
    if (layer->autoresizingMask() == CALayerNotSizable) continue;
    const auto box = autoresized(untransformedFrame(*layer), layer->autoresizingMask(),
                                 values_.bounds.standardized(), oldSize);
    const auto anchor = layer->anchorPoint();
    layer->setPosition({box.origin.x + anchor.x * box.size.width, box.origin.y + anchor.y * box.size.height});
    layer->setBounds({layer->bounds().origin, box.size});
  }
}

bool CALayer::contentsAreFlipped() const {
  // Layers are displayed from the root down, so the next one up usually knows.
  bool isFlipped = false;
  const auto* layer = this;
  for (; layer && layer->flip_.treeVersion != treeVersion_; layer = layer->container_) {
    isFlipped ^= layer->isGeometryFlipped();
  }
  if (layer) isFlipped ^= layer->flip_.isFlipped;
  flip_ = {treeVersion_, isFlipped};
  return isFlipped;
}

CGPoint CALayer::convertPointTo(CGPoint point, const CALayer* layer) const {
  const auto inRoot = transformToRoot(*this).apply(point);
  return layer ? transformToRoot(*layer).inverted().apply(inRoot) : inRoot;
}

CGPoint CALayer::convertPointFrom(CGPoint point, const CALayer* layer) const {
  return transformToRoot(*this).inverted().apply(layer ? transformToRoot(*layer).apply(point) : point);
}

CGRect CALayer::convertRectTo(const CGRect& rect, const CALayer* layer) const {
  const auto toRoot = transformToRoot(*this);
  return layer ? toRoot.concatenating(transformToRoot(*layer).inverted()).apply(rect) : toRoot.apply(rect);
}

CGRect CALayer::convertRectFrom(const CGRect& rect, const CALayer* layer) const {
  const auto fromRoot = transformToRoot(*this).inverted();
  return layer ? transformToRoot(*layer).concatenating(fromRoot).apply(rect) : fromRoot.apply(rect);
}

bool CALayer::contains(CGPoint point) const { return values_.bounds.contains(point); }

Ref<CALayer> CALayer::hitTest(CGPoint point) {
  point = transformToSuperlayer(*this).inverted().apply(point);
  if (isHidden() || !contains(point)) return nullptr;
  auto* hit = this;
  while (auto* deeper = frontmostHit(*hit, point)) {
    point = transformToSuperlayer(*deeper).inverted().apply(point);
    hit = deeper;
  }
  return Ref<CALayer>(hit);
}

}  // namespace bkuk
