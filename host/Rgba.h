#pragma once

namespace bkuk::host {

/// An sRGB colour, components 0 to 1, not premultiplied.
struct Rgba {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
  bool operator==(const Rgba&) const = default;
};

}  // namespace bkuk::host
