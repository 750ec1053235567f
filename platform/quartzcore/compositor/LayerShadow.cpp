#include "platform/quartzcore/compositor/LayerShadow.h"

#include <cmath>
#include <utility>

#include "platform/coregraphics/GaussianBlur.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerChildren.h"

namespace bkuk {

namespace {

// Whether the layer composed with its sublayers covers its box, wholly, and nothing else.
bool showsJustItsBox(const CALayer& shown, const LayerBox& box, const CALayer& layer) {
  const auto& background = shown.backgroundColor();
  const bool fillsBox = background && background->rgba().alpha == 1 && box.isUniform;
  const bool endsAtBox = LayerAccess::paintedBox(shown).isNull() && !shown.mask();
  return fillsBox && endsAtBox && contains(box.rect, pixelsBelow(layer));
}

}  // namespace

PixelRect pixelsBelow(const CALayer& layer) {
  PixelRect below;
  const auto* children = LayerAccess::children(layer);
  if (!children) return below;
  if (children->index) return children->index->bounds();
  for (const auto& sublayer : children->list.all()) {
    below = unite(below, LayerAccess::record(std::as_const(*sublayer)).subtree);
  }
  return below;
}

LayerShadow LayerShadow::of(const CALayer& shown, const LayerBox& box, const CALayer& layer, bool isFlipped) {
  return atMost(shown, box, isFlipped).with(shown, box, layer);
}

LayerShadow LayerShadow::with(const CALayer& shown, const LayerBox& box, const CALayer& layer) const {
  auto shadow = *this;
  if (kind == Kind::composed && showsJustItsBox(shown, box, layer)) shadow.kind = Kind::box;
  return shadow;
}

LayerShadow LayerShadow::atMost(const CALayer& shown, const LayerBox& box, bool isFlipped) {
  LayerShadow shadow;
  if (!(shown.shadowOpacity() > 0) || !shown.shadowColor() || shown.masksToBounds()) return shadow;
  const auto up = isFlipped ? -shown.shadowOffset().height : shown.shadowOffset().height;
  const auto offset = box.toDevice.apply(CGSize{shown.shadowOffset().width, up});
  if (!std::isfinite(offset.width) || !std::isfinite(offset.height)) return shadow;
  shadow.color = premultiplied(shown.shadowColor()->rgba(), shown.shadowOpacity());
  if (alphaOf(shadow.color) == 0) return shadow;
  shadow.sigma = shown.shadowRadius() > 0 ? std::min(shown.shadowRadius() * box.scale, maxBlurSigma) : 0;
  shadow.dx = toPixel(std::round(offset.width));
  shadow.dy = toPixel(std::round(offset.height));
  shadow.kind = shown.shadowPath() ? Kind::path : Kind::composed;
  return shadow;
}

PixelRect LayerShadow::rect(const CALayer& shown, const LayerBox& box, const PixelRect& content) const {
  if (kind == Kind::none) return {};
  auto shape = kind == Kind::box ? box.rect : content;
  if (kind == Kind::path) shape = touchedPixels(box.toDevice.apply(shown.shadowPath()->boundingBoxOfPath()));
  if (shape.isEmpty()) return {};
  const auto reach = blurReach(sigma);
  return {shape.x - reach + dx, shape.y - reach + dy, shape.width + 2 * reach, shape.height + 2 * reach};
}

PixelRect LayerShadow::areaThatCastsInto(const PixelRect& area) const {
  if (kind != Kind::composed || area.isEmpty()) return area;
  const auto reach = blurReach(sigma);
  return unite(area,
               {area.x - reach - dx, area.y - reach - dy, area.width + 2 * reach, area.height + 2 * reach});
}

}  // namespace bkuk
