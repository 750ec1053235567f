#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "host/Geometry.h"

namespace bkuk::host {

/// Premultiplied 0xAARRGGBB pixels in native byte order, rows from the top, no padding between rows.
///
/// The library paints into bitmaps of its own; a host only reads them when it presents a window and
/// writes them through the canvas that it made for one. A bitmap does not move its pixels while it
/// lives, so a canvas may keep their address.
class Bitmap {
 public:
  Bitmap() = default;

  /// Transparent pixels. A width or height of 0 or less, or more than `maxSide`, gives an empty bitmap.
  explicit Bitmap(PixelSize size);

  Bitmap(Bitmap&&) noexcept = default;
  Bitmap& operator=(Bitmap&&) noexcept = default;

  /// The longest side that a bitmap may have, in device pixels.
  static constexpr int maxSide = 32767;

  [[nodiscard]] PixelSize size() const { return size_; }
  [[nodiscard]] bool isEmpty() const { return pixels_ == nullptr; }
  [[nodiscard]] std::uint32_t* pixels() { return pixels_.get(); }
  [[nodiscard]] const std::uint32_t* pixels() const { return pixels_.get(); }
  [[nodiscard]] std::span<std::uint32_t> row(int y);
  [[nodiscard]] std::span<const std::uint32_t> row(int y) const;

  /// Makes every pixel of the part of `area` that lies inside the bitmap equal to `pixel`.
  void fill(PixelRect area, std::uint32_t pixel);

 private:
  PixelSize size_;
  std::unique_ptr<std::uint32_t[]> pixels_;
};

}  // namespace bkuk::host
