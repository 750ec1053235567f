#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/Geometry.h"

namespace bkuk::host {

/// Metrics of a face at its size, in points. `descent` is positive below the baseline.
struct FontMetrics {
  double ascent = 0;
  double descent = 0;
  double leading = 0;
  double capHeight = 0;
  double xHeight = 0;
};

enum class TextDirection { leftToRight, rightToLeft };

/// One shaped line, glyphs in visual order. Immutable.
class TextLine {
 public:
  virtual ~TextLine() = default;
  /// The distance that the pen travels, in points.
  [[nodiscard]] virtual double width() const = 0;
};

/// A face at a size. Immutable; shared freely.
class Font {
 public:
  virtual ~Font() = default;
  [[nodiscard]] virtual FontMetrics metrics() const = 0;
  [[nodiscard]] virtual std::string postScriptName() const = 0;
  /// Shapes the text as one line with bidirectional reordering and font fallback; line breaks in it
  /// count as spaces. `direction` is the base direction of the paragraph.
  [[nodiscard]] virtual std::shared_ptr<const TextLine> shape(std::u16string_view text,
                                                              TextDirection direction) const = 0;
};

/// The weight of the system face, on the scale of the OpenType weight class (400 regular, 700 bold).
using FontWeight = int;

class Fonts {
 public:
  virtual ~Fonts() = default;
  /// The desktop's own interface face; never empty. `size` in points.
  [[nodiscard]] virtual std::shared_ptr<const Font> systemFont(double size, FontWeight weight) = 0;
  /// The installed face of that PostScript name, empty when there is none.
  [[nodiscard]] virtual std::shared_ptr<const Font> font(std::string_view postScriptName, double size) = 0;
};

}  // namespace bkuk::host
