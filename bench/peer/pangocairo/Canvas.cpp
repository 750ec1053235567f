#include "bench/peer/pangocairo/Canvas.h"

namespace peer {

Canvas::Canvas(int width, int height, cairo_format_t format)
    : surface_(cairo_image_surface_create(format, width, height)), context_(cairo_create(surface_.get())) {}

void Canvas::clear() const {
  cairo_set_source_rgb(context(), 1, 1, 1);
  cairo_paint(context());
  cairo_set_source_rgb(context(), 0, 0, 0);
}

}  // namespace peer
