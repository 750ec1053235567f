#include "platform/quartzcore/compositor/LayerBox.h"

#include <algorithm>
#include <cmath>

#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/raster/BoxPath.h"
#include "platform/quartzcore/raster/RoundedBoxRaster.h"

namespace bkuk {

namespace {

bool isFinite(const CGAffineTransform& t) {
  return std::isfinite(t.a) && std::isfinite(t.b) && std::isfinite(t.c) && std::isfinite(t.d) &&
         std::isfinite(t.tx) && std::isfinite(t.ty);
}

// A turn by a quarter leaves a dust of rounding where there should be zeros.
bool isDust(double value, double beside) { return std::abs(value) <= std::abs(beside) * 1e-9; }
bool runsAlongAxes(const CGAffineTransform& t) { return isDust(t.b, t.a) && isDust(t.c, t.d); }
bool isQuarterTurned(const CGAffineTransform& t) { return isDust(t.a, t.b) && isDust(t.d, t.c); }

// What has any extent covers at least one pixel.
PixelRect visiblyLarge(PixelRect rect, const CGRect& exact) {
  if (rect.width == 0 && exact.width() > 0) rect.width = 1;
  if (rect.height == 0 && exact.height() > 0) rect.height = 1;
  return rect;
}

// Where the corner of the bounds with the greater x, the greater y or both lies on the device.
DeviceCorner deviceCorner(const CGAffineTransform& t, bool isMaxX, bool isMaxY) {
  const bool isTurned = isQuarterTurned(t);
  const auto alongX = isTurned ? t.c : t.a;
  const auto alongY = isTurned ? t.b : t.d;
  const bool isLeft = (alongX > 0) != (isTurned ? isMaxY : isMaxX);
  const bool isUpper = (alongY > 0) != (isTurned ? isMaxX : isMaxY);
  if (isUpper) return isLeft ? upperLeft : upperRight;
  return isLeft ? lowerLeft : lowerRight;
}

unsigned deviceCorners(const CGAffineTransform& t, unsigned masked) {
  unsigned corners = 0;
  if (masked & CALayerMinXMinYCorner) corners |= deviceCorner(t, false, false);
  if (masked & CALayerMaxXMinYCorner) corners |= deviceCorner(t, true, false);
  if (masked & CALayerMinXMaxYCorner) corners |= deviceCorner(t, false, true);
  if (masked & CALayerMaxXMaxYCorner) corners |= deviceCorner(t, true, true);
  return corners;
}

double usable(double radius) { return radius > 0 ? radius : 0; }

// The corners of its outline in the space of paths, `inset` by whole pixels or points.
BoxCorners cornersOf(const LayerBox& box, const CALayer& layer, double inset) {
  const auto radius =
      std::max(0.0, usable(layer.cornerRadius()) - (box.isAligned ? inset / box.scale : inset));
  const auto masked = layer.maskedCorners();
  if (!box.isAligned) {
    return {{radius, radius},
            {(masked & CALayerMinXMinYCorner) != 0, (masked & CALayerMaxXMinYCorner) != 0,
             (masked & CALayerMaxXMaxYCorner) != 0, (masked & CALayerMinXMaxYCorner) != 0}};
  }
  const auto onDevice = deviceCorners(box.toDevice, masked);
  const bool isTurned = isQuarterTurned(box.toDevice);
  return {{radius * std::abs(isTurned ? box.toDevice.c : box.toDevice.a),
           radius * std::abs(isTurned ? box.toDevice.b : box.toDevice.d)},
          {(onDevice & upperLeft) != 0, (onDevice & upperRight) != 0, (onDevice & lowerRight) != 0,
           (onDevice & lowerLeft) != 0}};
}

CGRect rectInPathSpace(const LayerBox& box) {
  const auto& pixels = box.rect;
  return box.isAligned ? CGRect(pixels.x, pixels.y, pixels.width, pixels.height) : box.bounds;
}

}  // namespace

LayerBox::LayerBox(const CALayer& layer, const CGAffineTransform& transform)
    : toDevice(transform), bounds(layer.bounds().standardized()) {
  const auto onDevice = toDevice.apply(bounds);
  isPlaced = isFinite(toDevice) && bkuk::isFinite(bounds) && bkuk::isFinite(onDevice);
  if (!isPlaced) return;
  isAligned = runsAlongAxes(toDevice) || isQuarterTurned(toDevice);
  scale = std::sqrt(std::abs(toDevice.determinant()));
  rect = isAligned ? visiblyLarge(snappedPixels(onDevice), onDevice) : touchedPixels(onDevice);
  const auto across = std::hypot(toDevice.a, toDevice.b);
  isUniform = isAligned && std::abs(across - scale) <= scale * 1e-6;
  if (!isUniform) return;
  shape =
      fitted({rect, usable(layer.cornerRadius()) * scale, deviceCorners(toDevice, layer.maskedCorners())});
  isUniform = RoundedBoxRaster::canPaint(shape);
}

int LayerBox::borderPixels(double width) const {
  if (!(width > 0)) return 0;
  return std::max(1, toPixel(std::floor(width * scale + 0.5)));
}

Ref<CGPath> LayerBox::path(const CALayer& layer) const {
  auto path = make<CGMutablePath>();
  addBox(*path, rectInPathSpace(*this), cornersOf(*this, layer, 0));
  return path;
}

Ref<CGPath> LayerBox::ringPath(const CALayer& layer) const {
  auto path = make<CGMutablePath>();
  const auto outer = rectInPathSpace(*this);
  addBox(*path, outer, cornersOf(*this, layer, 0));
  const auto inset = isAligned ? borderPixels(layer.borderWidth()) : layer.borderWidth();
  const auto inner = outer.insetBy(inset, inset);
  if (!inner.isEmpty()) addBoxReversed(*path, inner, cornersOf(*this, layer, inset));
  return path;
}

CGAffineTransform LayerBox::paintToDevice() const {
  if (!isAligned) return toDevice;
  const auto exact = toDevice.apply(bounds);
  return toDevice.concatenating(CGAffineTransform::translation(rect.x - exact.minX(), rect.y - exact.minY()));
}

PixelRect LayerBox::pixelsOfPaint(const CGRect& painted) const {
  return touchedPixels(paintToDevice().apply(painted));
}

CGAffineTransform LayerBox::pathToDevice() const { return isAligned ? CGAffineTransform() : toDevice; }

}  // namespace bkuk
