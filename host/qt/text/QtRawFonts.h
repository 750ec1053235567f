#pragma once

#include <QtGui/QRawFont>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "host/qt/text/GlyphAtlas.h"

namespace bkuk::host {

/// The faces that shaping has met, fallbacks included, each under a small number, and what draws them at each
/// size: glyph images are kept by font object, so lines of one size share it.
class QtRawFonts {
 public:
  /// The number of the face of `font`, which is at the layout's size.
  [[nodiscard]] std::uint32_t number(const QRawFont& font);
  [[nodiscard]] QRawFont at(std::uint32_t number, double size);
  /// Null for a glyph that is more than a mask: one of a face with pictures, or a very large one.
  [[nodiscard]] std::shared_ptr<const GlyphMask> mask(const GlyphKey& key);

 private:
  struct Face {
    QRawFont font;
    bool hasPictures;
  };

  std::vector<Face> faces_;
  GlyphAtlas atlas_;
  std::map<std::pair<std::uint32_t, double>, QRawFont> sized_;
};

}  // namespace bkuk::host
