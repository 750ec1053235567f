// The part of CALayer that lays out and makes contents.

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/LayerCommit.h"
#include "platform/quartzcore/PixelGeometry.h"

namespace bkuk {

namespace {

// More than a window of any screen has; a greater layer is drawn at a lower scale.
constexpr double mostPixels = 1 << 26;

struct BitmapShape {
  PixelSize size;
  double scale = 1;
};

// None for a layer without extent or place.
std::optional<BitmapShape> bitmapShape(const CGRect& bounds, double scale) {
  if (!isFinite(bounds) || bounds.isEmpty() || !std::isfinite(scale) || !(scale > 0)) return std::nullopt;
  const auto width = bounds.width();
  const auto height = bounds.height();
  scale = std::min({scale, host::Bitmap::maxSide / width, host::Bitmap::maxSide / height,
                    std::sqrt(mostPixels / width / height)});
  const auto pixels = touchedPixels({0, 0, width * scale, height * scale});
  return BitmapShape{{std::max(1, pixels.width), std::max(1, pixels.height)}, scale};
}

// Points above the lower edge of the bitmap, whose first row starts at the upper edge of the bounds.
CGAffineTransform baseTransform(const CGRect& bounds, double scale) {
  return {scale, 0, 0, -scale, 0, scale * bounds.height()};
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
  const auto object = delegateObject_.lock();
  if (object) delegate_->layoutSublayersOfLayer(*this);
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
  const Ref<CALayer> self(this);
  if (!animatesDisplay()) return display();
  // What is drawn follows an animated property, so the copy that has its value draws.
  const auto copy = presentation();
  copy->display();
  values_.contents = copy->values_.contents;
  markRender(Effect::repaint);
}

void CALayer::display() {
  const Ref<CALayer> self(this);
  const auto object = delegateObject_.lock();
  if (object && delegate_->displayLayer(*this)) return;
  drawBitmap();
}

void CALayer::drawBitmap() {
  Ref<CALayerContents> contents;
  if (const auto shape = bitmapShape(values_.bounds, values_.contentsScale)) {
    host::Bitmap bitmap;
    auto provide = [&] {
      bitmap = host::Bitmap(shape->size);
      return &bitmap;
    };
    const auto bounds = values_.bounds.standardized();
    {
      const auto context = make<CGContext>(shape->size, provide, baseTransform(bounds, shape->scale));
      context->concatenate(boundsToBase(bounds, model()->contentsAreFlipped()));
      draw(*context);
    }
    if (!bitmap.isEmpty()) contents = make<CALayerContents>(std::move(bitmap), shape->scale);
  }
  if (contents || values_.contents) markRender(Effect::repaint);
  values_.contents = contents;
}

void CALayer::draw(CGContext& context) {
  const auto object = delegateObject_.lock();
  if (object) delegate_->drawLayer(*this, context);
}

bool CALayer::needsDisplay(std::string_view) const { return false; }

}  // namespace bkuk
