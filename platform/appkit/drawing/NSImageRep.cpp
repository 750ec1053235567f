#include "platform/appkit/drawing/NSImageRep.h"

#include <algorithm>
#include <cmath>

#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/CGRoundedUp.h"

namespace bkuk {

namespace {

// The device pixels that a rectangle of user space extends over, however it is turned.
host::PixelSize pixelSize(const CGContext& context, CGSize size) {
  constexpr double most = 8192;
  const auto t = context.userSpaceToDeviceSpaceTransform();
  const auto pixels = [most](double length, double x, double y) {
    return static_cast<int>(std::clamp(CGRoundedUp(length * std::hypot(x, y)), 1.0, most));
  };
  return {pixels(size.width, t.a, t.b), pixels(size.height, t.c, t.d)};
}

bool isDrawable(const CGRect& rect) {
  return !rect.isEmpty() && std::isfinite(rect.size.width) && std::isfinite(rect.size.height);
}

}  // namespace

bool NSBitmapImageRep::draw(CGContext& context, const CGRect& rect) const {
  context.drawBitmap(bitmap_, rect);
  return !bitmap_->isEmpty();
}

NSScalableImageRep::NSScalableImageRep(std::shared_ptr<const host::ScalableImage> drawing)
    : NSImageRep({drawing->size().width, drawing->size().height}), drawing_(std::move(drawing)) {}

bool NSScalableImageRep::draw(CGContext& context, const CGRect& rect) const {
  if (!isDrawable(rect)) return false;
  const auto size = pixelSize(context, rect.size);
  if (!rendered_ || rendered_->size() != size) {
    rendered_ = std::make_shared<const host::Bitmap>(drawing_->render(size));
  }
  context.drawBitmap(rendered_, rect);
  return !rendered_->isEmpty();
}

bool NSCustomImageRep::draw(CGContext& context, const CGRect& rect) const {
  if (!handler_ || !isDrawable(rect)) return false;
  const Ref<const NSCustomImageRep> self(this);
  const Ref<CGContext> target(&context);
  target->saveGState();
  target->translateBy(rect.minX(), flipped_ ? rect.maxY() : rect.minY());
  if (flipped_) target->scaleBy(1, -1);
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(target, flipped_));
  const bool isDrawn = handler_({0, 0, rect.width(), rect.height()});
  target->restoreGState();
  return isDrawn;
}

}  // namespace bkuk
