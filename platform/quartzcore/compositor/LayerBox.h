#pragma once

#include "platform/coregraphics/CGPath.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/raster/RoundedBox.h"

namespace bkuk {

/// Where a layer's bounds lie on the device.
struct LayerBox {
  /// `toDevice` maps the layer's bounds space to device pixels.
  LayerBox(const CALayer& layer, const CGAffineTransform& toDevice);

  CGAffineTransform toDevice;
  CGRect bounds;
  /// Numbers that a device can show.
  bool isPlaced = false;
  /// Its sides run along the device's. Edges then lie between whole pixels.
  bool isAligned = false;
  /// Aligned, and one point has as many pixels across as down: `shape` is all there is to it.
  bool isUniform = false;
  double scale = 1;  ///< pixels per point; the geometric mean where they differ
  PixelRect rect;    ///< aligned: the pixels it covers; else the pixels it touches
  RoundedBox shape;  ///< uniform only

  /// The width of a border in whole pixels, at least one for any width above 0.
  [[nodiscard]] int borderPixels(double width) const;
  /// The outline, in device space where the box is aligned, else in bounds space.
  [[nodiscard]] Ref<CGPath> path(const CALayer& layer) const;
  /// In the same space what the layer's border covers, to be filled by the winding rule.
  [[nodiscard]] Ref<CGPath> ringPath(const CALayer& layer) const;
  /// What maps painting in the bounds space to the device: where the box is aligned, its upper left corner
  /// falls on a whole pixel.
  [[nodiscard]] CGAffineTransform paintToDevice() const;
  /// The pixels that painting into a rectangle of the bounds space touches.
  [[nodiscard]] PixelRect pixelsOfPaint(const CGRect& painted) const;
  /// What maps those paths to the device.
  [[nodiscard]] CGAffineTransform pathToDevice() const;
};

}  // namespace bkuk
