#include "platform/quartzcore/compositor/ScenePainter.h"

#include <cmath>
#include <cstdlib>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/raster/PieceRaster.h"
#include "platform/quartzcore/raster/PixelRuns.h"
#include "platform/quartzcore/raster/RoundedBoxRaster.h"
#include "platform/quartzcore/raster/ShadowMask.h"
#include "platform/quartzcore/raster/TiledPainting.h"

namespace bkuk {

namespace {

CGRect toRect(const PixelRect& rect) {
  return {static_cast<CGFloat>(rect.x), static_cast<CGFloat>(rect.y), static_cast<CGFloat>(rect.width),
          static_cast<CGFloat>(rect.height)};
}

bool isUpright(const LayerBox& box, bool isFlipped) {
  const auto& t = box.toDevice;
  return box.isAligned && t.a > 0 && (isFlipped ? t.d > 0 : t.d < 0);
}

// Whether the bitmap's pixels can be copied as they are.
bool fallsOnPixels(const CALayerContents& contents, const LayerBox& box, bool isFlipped) {
  if (!isUpright(box, isFlipped)) return false;
  const auto size = contents.size();
  if (size.width == box.rect.width && size.height == box.rect.height) return true;
  // One row or column more or less comes from rounding the box's edges.
  return box.isUniform && std::abs(contents.scale() - box.scale) <= box.scale * 1e-6 &&
         std::abs(size.width - box.rect.width) <= 1 && std::abs(size.height - box.rect.height) <= 1;
}

// Maps a bitmap's space, y up from its lower edge, to the bounds of the layer on the device.
CGAffineTransform imageToDevice(const LayerBox& box, bool isFlipped) {
  const auto& bounds = box.bounds;
  if (isUpright(box, isFlipped)) {
    const auto rect = toRect(box.rect);
    return {rect.width() / bounds.width(), 0, 0, -rect.height() / bounds.height(), rect.minX(), rect.maxY()};
  }
  const CGAffineTransform toBounds{
      1, 0, 0, isFlipped ? -1.0 : 1.0, bounds.minX(), isFlipped ? bounds.maxY() : bounds.minY()};
  return toBounds.concatenating(box.toDevice);
}

// Where the bitmap lies in the bounds, above their lower left corner.
CGRect placeOf(const CALayerContents& contents, const CGRect& bounds) {
  const auto whole = contents.size();
  const auto part = contents.bitmapSize();
  const auto x = bounds.width() / whole.width;
  const auto y = bounds.height() / whole.height;
  return {contents.x() * x, (whole.height - contents.y() - part.height) * y, part.width * x, part.height * y};
}

void clipToBox(CGContext& context, const CALayer& layer, const LayerBox& box) {
  const auto toDevice = box.pathToDevice();
  context.concatenate(toDevice);
  context.addPath(*box.path(layer));
  context.clip();
  context.concatenate(toDevice.inverted());
}

// What of the device the layer's own painting is cut to.
RoundedBox outlineOfPaint(const CALayer& layer, const LayerBox& box) {
  if (LayerAccess::cutsPaintToBounds(layer) && box.isUniform) return box.shape;
  return {box.pixelsOfPaint(LayerAccess::paintedBox(layer)), 0, 0};
}

void applyMask(const PixelTarget& target, const PixelTarget& mask) {
  const auto& area = target.area();
  for (int y = area.y; y < area.maxY(); ++y) {
    multiplyByAlpha(target.at(area.x, y), mask.at(area.x, y), area.width);
  }
}

}  // namespace

// An image under construction: the window's, or a group's own.
struct ScenePainter::Surface {
  explicit Surface(host::Bitmap& image) : bitmap(image), pixels(bitmap, 0, 0) {}
  explicit Surface(const PixelRect& rect)
      : own({rect.width, rect.height}), bitmap(own), pixels(bitmap, rect.x, rect.y) {}
  Surface(const Surface&) = delete;

  // Made when something first needs it. Its base space is the device's.
  CGContext& context() {
    const auto& area = pixels.area();
    if (!made) made = make<CGContext>(bitmap, CGAffineTransform::translation(-area.x, -area.y));
    return *made;
  }

  host::Bitmap own;
  host::Bitmap& bitmap;
  PixelTarget pixels;
  Ref<CGContext> made;
};

namespace {

// A context clipped to an item's pixels for the length of a scope.
class ContextScope {
 public:
  ContextScope(CGContext& context, const Scene::Item& item) : context_(context) {
    context_.saveGState();
    context_.clip(toRect(item.rect));
  }
  ~ContextScope() { context_.restoreGState(); }
  ContextScope(const ContextScope&) = delete;
  ContextScope& operator=(const ContextScope&) = delete;

 private:
  CGContext& context_;
};

}  // namespace

ScenePainter::ScenePainter(host::Bitmap& image) { surfaces_.push_back(std::make_unique<Surface>(image)); }

ScenePainter::~ScenePainter() = default;

void ScenePainter::paint(const Scene& scene, const PixelRect& area) {
  if (!scene.coversArea()) top().bitmap.fill(area, 0);
  for (const auto& item : scene.items()) {
    if (!item.isHidden) paintItem(scene, item);
  }
}

void ScenePainter::paintItem(const Scene& scene, const Item& item) {
  switch (item.kind) {
    case Item::Kind::fill:
      return paintFill(item, scene.box(item));
    case Item::Kind::ring:
      return paintRing(item, scene.box(item));
    case Item::Kind::contents:
      return paintContents(item, scene.box(item));
    case Item::Kind::custom:
      return paintCustom(item, scene.box(item));
    case Item::Kind::shadow:
      return paintShadow(item, scene.box(item), scene.covers(item));
    case Item::Kind::groupBegin:
      return beginGroup(item);
    case Item::Kind::maskBegin:
      return beginMask();
    case Item::Kind::groupEnd:
      return endGroup(item, scene.box(item));
  }
}

// `path` is in the space of the box's paths.
void ScenePainter::paintPath(const Item& item, const LayerBox& box, const CGPath& path,
                             const Ref<CGColor>& color, double alpha) {
  paintByTiles(top().pixels, item.rect, {box.rect, 0, 0}, [&](CGContext& context) {
    context.concatenate(box.pathToDevice());
    context.setAlpha(alpha);
    context.setFillColor(color);
    context.addPath(path);
    context.fillPath();
  });
}

void ScenePainter::paintFill(const Item& item, const LayerBox& box) {
  if (box.isUniform) return RoundedBoxRaster(top().pixels, item.rect).fill(box.shape, item.color);
  paintPath(item, box, *box.path(*item.layer), item.layer->backgroundColor(), item.alpha);
}

void ScenePainter::paintRing(const Item& item, const LayerBox& box) {
  if (box.isUniform && RoundedBoxRaster::canPaint(box.shape, item.width)) {
    return RoundedBoxRaster(top().pixels, item.rect).ring(box.shape, item.width, item.color);
  }
  paintPath(item, box, *box.ringPath(*item.layer), item.layer->borderColor(), item.alpha);
}

void ScenePainter::paintContents(const Item& item, const LayerBox& box) {
  const auto& contents = *item.layer->contents();
  if (fallsOnPixels(contents, box, item.isFlipped)) return paintOnPixels(item, contents, box);
  paintByTiles(top().pixels, item.rect, {box.rect, 0, 0}, [&](CGContext& context) {
    context.concatenate(imageToDevice(box, item.isFlipped));
    context.setAlpha(item.alpha);
    context.drawBitmap(contents.bitmap(), placeOf(contents, box.bounds));
  });
}

void ScenePainter::paintOnPixels(const Item& item, const CALayerContents& contents, const LayerBox& box) {
  const auto x = box.rect.x + contents.x();
  const auto y = box.rect.y + contents.y();
  const auto alpha = toByte(item.alpha);
  const RoundedBoxRaster target(top().pixels, item.rect);
  if (contents.pieces().empty()) return target.image({box.rect, 0, 0}, contents.bitmap(), x, y, alpha);
  const auto size = contents.bitmapSize();
  const auto area = intersect(item.rect, {x, y, size.width, size.height});
  if (alpha == 255) return PieceRaster(top().pixels, area).paint(contents.pieces(), x, y);
  // Pieces that overlap fade as one.
  Surface faded(area);
  if (faded.bitmap.isEmpty()) return;
  PieceRaster(faded.pixels, area).paint(contents.pieces(), x, y);
  target.image({area, 0, 0}, faded.bitmap, area.x, area.y, alpha);
}

void ScenePainter::paintCustom(const Item& item, const LayerBox& box) {
  const auto& layer = *item.layer;
  const bool isCut = LayerAccess::cutsPaintToBounds(layer);
  const auto paint = [&](CGContext& context) {
    if (isCut && !box.isUniform) clipToBox(context, layer, box);
    context.concatenate(box.paintToDevice());
    context.setAlpha(item.alpha);
    LayerAccess::paint(layer, context);
  };
  const bool fillsPlainBox = isCut && box.isUniform && box.shape.isPlain();
  if (!fillsPlainBox) return paintByTiles(top().pixels, item.rect, outlineOfPaint(layer, box), paint);
  auto& context = top().context();
  const ContextScope scope(context, item);
  paint(context);
}

void ScenePainter::paintShadow(const Item& item, const LayerBox& box, std::span<const PixelRect> covers) {
  const auto& shadow = item.shadow;
  const auto color = scaled(shadow.color, toByte(item.alpha));
  const bool isBox = shadow.kind == LayerShadow::Kind::box;
  // Far enough that everything of the shape counts that casts into the item's pixels.
  const auto reach = ShadowMask::reach(shadow.sigma);
  const PixelRect area{item.rect.x - reach - shadow.dx, item.rect.y - reach - shadow.dy,
                       item.rect.width + 2 * reach, item.rect.height + 2 * reach};
  auto [mask, rect] = isBox ? ShadowMask::ofBox(box.shape, shadow.sigma)
                            : ShadowMask::ofPath(item.layer->shadowPath(), box.toDevice, shadow.sigma, area);
  if (!mask) return;
  rect.x += shadow.dx;
  rect.y += shadow.dy;
  mask->paint(top().pixels, item.rect, rect, covers, color);
}

// Groups

void ScenePainter::beginGroup(const Item& item) {
  surfaces_.push_back(std::make_unique<Surface>(item.surface));
}

void ScenePainter::beginMask() { surfaces_.push_back(std::make_unique<Surface>(top().pixels.area())); }

void ScenePainter::composeMask() {
  const auto mask = std::move(surfaces_.back());
  surfaces_.pop_back();
  applyMask(top().pixels, mask->pixels);
}

void ScenePainter::cutToBox(const Item& item, const LayerBox& box) {
  beginMask();
  paintPath(item, box, *box.path(*item.layer), CGColor::black(), 1);
  composeMask();
}

void ScenePainter::endGroup(const Item& item, const LayerBox& box) {
  if (item.hasMask) composeMask();
  const bool cutsByRaster = item.clipsToBox && box.isUniform;
  if (item.clipsToBox && !cutsByRaster) cutToBox(item, box);
  const auto group = std::move(surfaces_.back());
  surfaces_.pop_back();
  group->made = nullptr;
  const auto& area = group->pixels.area();
  if (group->bitmap.isEmpty()) return;
  if (item.shadow.kind == LayerShadow::Kind::composed) {
    const auto& shadow = item.shadow;
    auto [mask, rect] = ShadowMask::ofImage(group->bitmap, area.x, area.y, shadow.sigma);
    rect.x += shadow.dx;
    rect.y += shadow.dy;
    mask->paint(top().pixels, item.rect, rect, {}, scaled(shadow.color, toByte(item.alpha)));
  }
  const auto shape = cutsByRaster ? box.shape : RoundedBox{area, 0, 0};
  RoundedBoxRaster(top().pixels, item.rect).image(shape, group->bitmap, area.x, area.y, toByte(item.alpha));
}

}  // namespace bkuk
