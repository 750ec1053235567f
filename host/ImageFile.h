#pragma once

#include <memory>

#include "host/Bitmap.h"
#include "host/Geometry.h"

namespace bkuk::host {

/// A drawing that is sharp at every size.
class ScalableImage {
 public:
  virtual ~ScalableImage() = default;
  /// The one that the drawing names, in points; not empty.
  [[nodiscard]] virtual Size size() const = 0;
  /// The whole drawing in that many pixels; an empty bitmap when that cannot be made.
  [[nodiscard]] virtual Bitmap render(PixelSize size) const = 0;
};

enum class ImageFault {
  none,
  unknownKind,   ///< neither PNG nor JPEG nor SVG
  notSupported,  ///< a kind that this host has no reader for
  damaged,
  tooLarge,
};

/// A picture from the bytes of a file: pixels or a drawing, or what is wrong with it.
struct DecodedImage {
  Bitmap pixels{};
  std::shared_ptr<const ScalableImage> drawing{};
  ImageFault fault = ImageFault::none;
};

/// The most pixels that are read from a file.
inline constexpr long mostImagePixels = 1L << 25;

}  // namespace bkuk::host
