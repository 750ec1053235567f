#include "platform/quartzcore/compositor/LayerSight.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/quartzcore/CARenderer.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerAnimator.h"
#include "platform/quartzcore/LayerGeometry.h"

namespace bkuk {

namespace {

PixelRect grown(const PixelRect& rect, int x, int y) {
  return {rect.x - x, rect.y - y, rect.width + 2 * x, rect.height + 2 * y};
}

// What sublayers need to know of the layers around them.
struct Inside {
  CGAffineTransform toDevice{};
  PixelRect sight{};
  bool isFlipped = false;
  bool isKnown = false;
};

Inside aroundRoot(const CALayer& root) {
  const auto* renderer = LayerAccess::renderer(root);
  if (!renderer || renderer->image().isEmpty()) return {};
  const auto size = renderer->size();
  return {renderer->toDevice(), sightAround({0, 0, size.width, size.height}), false, true};
}

Inside insideOf(const CALayer& layer, const Inside& around, double time) {
  if (!around.isKnown || LayerAccess::isMask(layer)) return {};
  const auto shown = LayerAccess::shown(layer, time);
  const LayerBox box(*shown, transformToSuperlayer(*shown).concatenating(around.toDevice));
  if (!box.isPlaced) return {};
  const bool isFlipped = around.isFlipped != shown->isGeometryFlipped();
  return {box.toDevice, sightInside(*shown, box, around.sight, LayerShadow::atMost(*shown, box, isFlipped)),
          isFlipped, true};
}

// What was found out of superlayers, as long as no tree changes, so that displaying many layers or deep ones
// does not walk up from each.
class Surroundings {
 public:
  static Surroundings& current() {
    static auto& surroundings = *new Surroundings;
    const auto time = LayerAnimator::shared().time();
    const auto version = LayerAccess::treeVersion();
    if (surroundings.version_ == version && surroundings.time_ == time) return surroundings;
    surroundings.known_.clear();
    surroundings.version_ = version;
    surroundings.time_ = time;
    return surroundings;
  }

  const Inside& inside(const CALayer& layer) {
    std::vector<const CALayer*> unknown;
    const auto* each = &layer;
    for (; each && !known_.contains(each); each = LayerAccess::container(*each)) unknown.push_back(each);
    for (auto next = unknown.rbegin(); next != unknown.rend(); ++next) {
      known_[*next] = insideOf(**next, each ? known_[each] : aroundRoot(**next), time_);
      each = *next;
    }
    return known_[&layer];
  }

 private:
  std::unordered_map<const CALayer*, Inside> known_;
  std::uint64_t version_ = 0;
  double time_ = 0;
};

}  // namespace

// Half of the length that shows, on each side.
PixelRect sightAround(const PixelRect& image) { return grown(image, image.width / 2, image.height / 2); }

PixelRect sightInside(const CALayer& shown, const LayerBox& box, const PixelRect& sight,
                      const LayerShadow& shadow) {
  if (shown.masksToBounds()) return intersect(sight, sightAround(box.rect));
  return shadow.areaThatCastsInto(sight);
}

PixelRect whereBitmapsAreKept(const PixelRect& sight) {
  return grown(sight, sight.width / 4, sight.height / 4);
}

std::optional<CGRect> boundsInSight(const CALayer& layer) {
  const auto* above = LayerAccess::container(layer);
  const auto around = above ? Surroundings::current().inside(*above) : aroundRoot(layer);
  if (!around.isKnown || LayerAccess::isMask(layer)) return std::nullopt;
  const auto shown = LayerAccess::shown(layer, LayerAnimator::shared().time());
  const LayerBox box(*shown, transformToSuperlayer(*shown).concatenating(around.toDevice));
  if (!box.isPlaced) return std::nullopt;
  return boundsWithin(box, around.sight);
}

CGRect boundsWithin(const LayerBox& box, const PixelRect& pixels) {
  const auto part = intersect(pixels, box.rect);
  if (part.isEmpty() || box.toDevice.determinant() == 0) return {};
  const CGRect onDevice(part.x, part.y, part.width, part.height);
  return box.toDevice.inverted().apply(onDevice).intersection(box.bounds);
}

CGRect boundsDrawn(const CALayer& layer, bool isFlipped) {
  const auto& contents = *layer.contents();
  const auto bounds = layer.bounds().standardized();
  const auto scale = contents.scale();
  const auto size = contents.bitmapSize();
  const auto down = contents.y() / scale;
  const auto height = size.height / scale;
  return {bounds.minX() + contents.x() / scale,
          isFlipped ? bounds.minY() + down : bounds.maxY() - down - height, size.width / scale, height};
}

}  // namespace bkuk
