#pragma once

#include <cstdint>
#include <cstdlib>

#include "platform/coregraphics/CGContext.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {

/// A bitmap of `width` × `height` points at a scale, and a context over it. Pixels count from the upper left.
struct Picture {
  Picture(int width, int height, double scale = 1)
      : bitmap({static_cast<int>(width * scale), static_cast<int>(height * scale)}),
        context(make<CGContext>(bitmap, CGAffineTransform{scale, 0, 0, -scale, 0, height * scale})) {}

  CGContext* operator->() const { return context.get(); }

  [[nodiscard]] std::uint32_t pixel(int x, int y) const { return bitmap.row(y)[static_cast<std::size_t>(x)]; }
  [[nodiscard]] int alpha(int x, int y) const { return static_cast<int>(pixel(x, y) >> 24); }

  /// How much is covered, in pixels.
  [[nodiscard]] double coverage() const {
    double sum = 0;
    for (int y = 0; y < bitmap.size().height; ++y) {
      for (int x = 0; x < bitmap.size().width; ++x) sum += alpha(x, y) / 255.0;
    }
    return sum;
  }
  [[nodiscard]] bool isBlank() const { return coverage() == 0; }

  VirtualHostScope host;
  host::Bitmap bitmap;
  Ref<CGContext> context;
};

}  // namespace bkuk
