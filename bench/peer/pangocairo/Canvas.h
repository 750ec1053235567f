#pragma once

#include <cairo.h>
#include <memory>

namespace peer {

struct CairoRelease {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};

using CairoContext = std::unique_ptr<cairo_t, CairoRelease>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoRelease>;

/// An image in memory with what draws into it.
class Canvas {
 public:
  Canvas(int width, int height, cairo_format_t format = CAIRO_FORMAT_RGB24);

  [[nodiscard]] cairo_t* context() const { return context_.get(); }
  [[nodiscard]] cairo_surface_t* surface() const { return surface_.get(); }

  /// White all over; black from then on.
  void clear() const;

 private:
  CairoSurface surface_;
  CairoContext context_;
};

}  // namespace peer
