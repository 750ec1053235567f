// The part of CALayer that lays out and makes contents.

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerCommit.h"
#include "platform/quartzcore/LayerExtras.h"
#include "platform/quartzcore/PixelGeometry.h"
#include "platform/quartzcore/compositor/LayerSight.h"

namespace bkuk {

namespace {

// More than a window of any screen has. Of a greater layer the part in sight is drawn, or all at a lower
// scale.
constexpr double mostPixels = 1 << 26;

struct BitmapShape {
  PixelRect part;  // of the pixels of the whole layer, those to draw
  PixelSize whole;
  double scale = 1;

  [[nodiscard]] bool isPart() const { return part.width < whole.width || part.height < whole.height; }
};

bool fitsBitmap(double width, double height) {
  return width <= host::Bitmap::maxSide && height <= host::Bitmap::maxSide && width * height <= mostPixels;
}

PixelSize pixelSize(const CGRect& bounds, double scale) {
  const auto pixels = touchedPixels({0, 0, bounds.width() * scale, bounds.height() * scale});
  return {std::max(1, pixels.width), std::max(1, pixels.height)};
}

// The pixels of what is in sight, counted from the upper left.
PixelRect pixelsInSight(const CGRect& bounds, double scale, const CGRect& sight, bool isFlipped) {
  const auto down = isFlipped ? sight.minY() - bounds.minY() : bounds.maxY() - sight.maxY();
  return touchedPixels(
      {(sight.minX() - bounds.minX()) * scale, down * scale, sight.width() * scale, sight.height() * scale});
}

// None for a layer without extent or place.
std::optional<BitmapShape> bitmapShape(const CGRect& bounds, double scale, const std::optional<CGRect>& sight,
                                       bool isFlipped) {
  if (!isFinite(bounds) || bounds.isEmpty() || !std::isfinite(scale) || !(scale > 0)) return std::nullopt;
  const auto width = bounds.width();
  const auto height = bounds.height();
  const bool isCountable = std::max(width, height) * scale < farthestPixel;
  if (sight && isCountable && !fitsBitmap(width * scale, height * scale)) {
    const auto whole = pixelSize(bounds, scale);
    const auto part =
        intersect(pixelsInSight(bounds, scale, *sight, isFlipped), {0, 0, whole.width, whole.height});
    if (!part.isEmpty() && fitsBitmap(part.width, part.height)) return BitmapShape{part, whole, scale};
  }
  scale = std::min({scale, host::Bitmap::maxSide / width, host::Bitmap::maxSide / height,
                    std::sqrt(mostPixels / width / height)});
  const auto whole = pixelSize(bounds, scale);
  return BitmapShape{{0, 0, whole.width, whole.height}, whole, scale};
}

// Points above the lower edge of the layer, to the pixels of the part.
CGAffineTransform baseTransform(const CGRect& bounds, const BitmapShape& shape) {
  return {shape.scale,
          0,
          0,
          -shape.scale,
          -static_cast<CGFloat>(shape.part.x),
          shape.scale * bounds.height() - shape.part.y};
}

// What was drawn, none for nothing.
Ref<CALayerContents> contentsOf(const BitmapShape& shape, host::Bitmap bitmap,
                                std::vector<PaintedPiece> pieces) {
  const auto& drawn = shape.part;
  std::optional<CALayerContents::Part> part;
  if (shape.isPart()) part = {shape.whole, drawn.x, drawn.y};
  if (!bitmap.isEmpty()) return make<CALayerContents>(std::move(bitmap), shape.scale, part);
  if (pieces.empty()) return nullptr;
  return make<CALayerContents>(std::move(pieces), PixelSize{drawn.width, drawn.height}, shape.scale, part);
}

CGAffineTransform boundsToBase(const CGRect& bounds, bool isFlipped) {
  return {1, 0, 0, isFlipped ? -1.0 : 1.0, -bounds.minX(), isFlipped ? bounds.maxY() : -bounds.minY()};
}

}  // namespace

void CALayer::setNeedsLayout() {
  if (marks_.layout || isPresentation_) return;
  marks_.layout = true;
  markCommit();
}

void CALayer::layoutSublayers() {
  if (const auto delegate = delegate_.lock()) delegate->layoutSublayersOfLayer(*this);
}

void CALayer::layoutIfNeeded() {
  const Ref<CALayer> self(this);
  auto* top = this;
  for (auto* layer = this; layer; layer = layer->container_) {
    if (layer->marks_.layout) top = layer;
  }
  layoutMarked(*top);
}

void CALayer::setNeedsDisplay() {
  if (marks_.display || isPresentation_) return;
  marks_.display = true;
  markCommit();
}

void CALayer::displayIfNeeded() {
  if (!marks_.display) return;
  marks_.display = false;
  drawn_ = Drawn::no;
  const Ref<CALayer> self(this);
  if (!animatesDisplay()) return display();
  // What is drawn follows an animated property, so the copy that has its value draws.
  const auto copy = presentation();
  copy->display();
  values_.contents = copy->values_.contents;
  drawn_ = copy->drawn_;
  markRender(Effect::repaint);
}

void CALayer::display() {
  const Ref<CALayer> self(this);
  const auto delegate = delegate_.lock();
  if (delegate && delegate->displayLayer(*this)) return;
  drawBitmap();
}

void CALayer::drawBitmap() {
  const auto bounds = values_.bounds.standardized();
  const auto shown = model();
  const auto sight = boundsInSight(*shown);
  if (sight && sight->isEmpty()) return keepDrawing(nullptr, Drawn::awaited);
  const bool isFlipped = shown->contentsAreFlipped();
  const auto shape = bitmapShape(bounds, values_.contentsScale, sight, isFlipped);
  if (!shape) return keepDrawing(nullptr, Drawn::wholly);
  const PixelSize size{shape->part.width, shape->part.height};
  host::Bitmap bitmap;
  auto provide = [&] {
    bitmap = host::Bitmap(size);
    return &bitmap;
  };
  const auto context = make<CGContext>(size, provide, baseTransform(bounds, *shape));
  context->keepPieces();
  context->concatenate(boundsToBase(bounds, isFlipped));
  draw(*context);
  auto pieces = context->finish();
  keepDrawing(contentsOf(*shape, std::move(bitmap), std::move(pieces)),
              shape->isPart() ? Drawn::partly : Drawn::wholly);
}

void CALayer::keepDrawing(const Ref<CALayerContents>& contents, Drawn drawn) {
  if (contents || values_.contents) markRender(Effect::repaint);
  values_.contents = contents;
  drawn_ = drawn;
}

void CALayer::draw(CGContext& context) {
  if (const auto delegate = delegate_.lock()) delegate->drawLayer(*this, context);
}

bool CALayer::needsDisplay(std::string_view) const { return false; }

// What the compositor asks

void LayerAccess::dropDrawing(CALayer& layer) {
  layer.values_.contents = nullptr;
  layer.drawn_ = Drawn::awaited;
  if (layer.extras_) layer.extras_->presentation = nullptr;
}

void LayerAccess::displayAgain(CALayer& layer) {
  layer.marks_.display = true;
  layer.displayIfNeeded();
}

}  // namespace bkuk
