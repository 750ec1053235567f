#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "host/Bitmap.h"
#include "host/Canvas.h"
#include "host/ImageFile.h"
#include "host/Text.h"

namespace bkuk::host {

/// Shapes, text and image files. Needs no display: the same answers hold with and without one. Main thread.
class Drawing {
 public:
  virtual ~Drawing() = default;

  /// A painter for `bitmap`, which must outlive it. What was painted is in the bitmap when the canvas goes,
  /// at the latest. Canvases for different bitmaps may live side by side.
  [[nodiscard]] virtual std::unique_ptr<Canvas> makeCanvas(Bitmap& bitmap) = 0;

  /// The same object for as long as the host lives. Fonts and lines of text stay usable for as long as the
  /// library holds them, also after the host.
  [[nodiscard]] virtual Fonts& fonts() = 0;

  /// Reads PNG and JPEG, and SVG where the host has a reader for it. The contents decide, never a name. What
  /// is damaged, cut short or too large gives a fault and nothing else.
  [[nodiscard]] virtual DecodedImage decodeImage(std::span<const std::byte> file) const = 0;
};

/// The drawing of the one implementation that is linked, for a host without a desktop.
[[nodiscard, gnu::visibility("default")]] std::unique_ptr<Drawing> makeDrawing();

}  // namespace bkuk::host
