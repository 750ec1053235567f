#include "host/Bitmap.h"

#include <algorithm>

namespace bkuk::host {

Bitmap::Bitmap(PixelSize size) {
  if (size.width <= 0 || size.height <= 0 || size.width > maxSide || size.height > maxSide) return;
  size_ = size;
  pixels_ = std::make_unique<std::uint32_t[]>(static_cast<std::size_t>(size.width) * size.height);
}

std::span<std::uint32_t> Bitmap::row(int y) {
  const auto width = static_cast<std::size_t>(size_.width);
  return {pixels_.get() + width * y, width};
}

std::span<const std::uint32_t> Bitmap::row(int y) const {
  const auto width = static_cast<std::size_t>(size_.width);
  return {pixels_.get() + width * y, width};
}

void Bitmap::fill(PixelRect area, std::uint32_t pixel) {
  const int left = std::clamp(area.x, 0, size_.width);
  const int right = std::clamp(area.maxX(), left, size_.width);
  const int top = std::clamp(area.y, 0, size_.height);
  const int bottom = std::clamp(area.maxY(), top, size_.height);
  for (int y = top; y < bottom; ++y) std::ranges::fill(row(y).subspan(left, right - left), pixel);
}

}  // namespace bkuk::host
