#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Geometry.h"
#include "host/GlyphMasks.h"

namespace bkuk::host {

/// Metrics of a face at its size, in points, from the face's own tables and not rounded.
struct FontMetrics {
  double ascent = 0;
  double descent = 0;  ///< positive below the baseline
  double leading = 0;
  double capHeight = 0;
  double xHeight = 0;
  double underlinePosition = 0;  ///< negative below the baseline
  double underlineThickness = 0;
  double italicAngle = 0;  ///< degrees, counter-clockwise from upright
  Rect bounds{};           ///< around all glyphs set at one place; its y runs up from the baseline
};

enum class TextDirection { leftToRight, rightToLeft };

/// Where one UTF-16 code unit of a line stands, in points from the start of the line.
///
/// No glyph stands for more than one character that a reader would tell apart. Only the first code unit of
/// such a character advances; the others (the second half of a surrogate pair, combining marks, joined emoji)
/// share its left edge and do not.
struct TextUnit {
  double x = 0;  ///< the left edge, in either direction
  double advance = 0;
  bool isRightToLeft = false;
  bool startsCharacter = true;
};

/// One shaped line, glyphs in visual order. Immutable; painted by `Canvas::drawText` without being shaped
/// again.
class TextLine {
 public:
  virtual ~TextLine() = default;
  /// The distance that the pen travels, in points.
  [[nodiscard]] virtual double width() const = 0;
  /// One for each UTF-16 code unit of the line, in the order of the text.
  [[nodiscard]] virtual std::span<const TextUnit> units() const = 0;
  /// The glyphs of the indexes from `from` up to `to`, counted from the line's first, where they stand in the
  /// line: drawn at the same origin the parts make up the line. `to` is cut to the line's length.
  [[nodiscard]] virtual std::shared_ptr<const TextLine> part(std::size_t from, std::size_t to) const = 0;
  /// Around the outlines of the glyphs, seen from the start of the baseline; its y runs up. Empty for none.
  [[nodiscard]] virtual Rect inkBounds() const = 0;
  /// What `Canvas::drawText` paints at `scale` pixels to the point, upright, where the line starts `x` pixels
  /// right of the canvas's edge: the masks of its glyphs, with y from the baseline's pixel. The last answer
  /// is kept. Null when it takes more than masks, as glyphs with colours of their own and very large ones
  /// do; a host may always answer that.
  [[nodiscard]] virtual std::shared_ptr<const GlyphMasks> masks(double scale, double x) const = 0;
};

/// Whether a line may begin at an index.
enum class LineBreak : std::uint8_t { none, allowed, mandatory };

/// A text in one direction, shaped and not yet broken into lines. Immutable.
class TextParagraph {
 public:
  virtual ~TextParagraph() = default;
  /// In UTF-16 code units.
  [[nodiscard]] virtual std::size_t length() const = 0;
  /// On one line, in points.
  [[nodiscard]] virtual double width() const = 0;
  /// The advance of each code unit, in the order of the text. Those of any stretch add up to its width.
  [[nodiscard]] virtual std::span<const double> advances() const = 0;
  /// One for each code unit and one for the end.
  [[nodiscard]] virtual std::span<const LineBreak> lineBreaks() const = 0;
  /// The text from `from` up to `to` as a line: reordered for both directions, white space at its end moved
  /// to where the paragraph's direction ends. `to` is cut to the length.
  [[nodiscard]] virtual std::shared_ptr<const TextLine> line(std::size_t from, std::size_t to) const = 0;
};

/// The weight of a face, on the scale of the OpenType weight class (400 regular, 700 bold).
using FontWeight = int;

/// A face at a size. Immutable; shared freely.
class Font {
 public:
  virtual ~Font() = default;
  [[nodiscard]] virtual FontMetrics metrics() const = 0;
  [[nodiscard]] virtual std::string postScriptName() const = 0;
  /// As people know it.
  [[nodiscard]] virtual std::string familyName() const = 0;
  /// As the face says itself; 400 where it does not.
  [[nodiscard]] virtual FontWeight weight() const = 0;
  /// The face's own glyph for a character; 0 when it has none.
  [[nodiscard]] virtual std::uint32_t glyph(char32_t character) const = 0;
  /// How far the pen travels past a glyph of the face, in points.
  [[nodiscard]] virtual double advance(std::uint32_t glyph) const = 0;
  /// Shapes the text as one line with bidirectional reordering and font fallback; line breaks and tabs in it
  /// count as spaces. `direction` is the base direction of the paragraph.
  [[nodiscard]] virtual std::shared_ptr<const TextLine> shape(std::u16string_view text,
                                                              TextDirection direction) const = 0;
};

/// A stretch of text in one font.
struct TextRun {
  std::size_t length = 0;      ///< in UTF-16 code units
  const Font* font = nullptr;  ///< of the same host; needs to live for the call only
  double kern = 0;             ///< points added after each character
  bool usesPairKerning = true;
};

/// What became of a font file that was to be registered.
struct FontRegistration {
  enum class Status { registered, missingFile, notAFont, registeredBefore };
  Status status = Status::notAFont;
  std::vector<std::string> names{};  ///< the PostScript names of the faces that are new
};

class Fonts {
 public:
  virtual ~Fonts() = default;
  /// The desktop's own interface face; never empty. `size` in points.
  [[nodiscard]] virtual std::shared_ptr<const Font> systemFont(double size, FontWeight weight) = 0;
  /// The registered or else installed face of that PostScript name. A name that other systems' faces for
  /// Japanese, Chinese or Korean have finds what stands in for it here. Empty when there is none.
  [[nodiscard]] virtual std::shared_ptr<const Font> font(std::string_view postScriptName, double size) = 0;
  /// Of the registered and installed faces of that family, by the name that people know it by, an upright one
  /// of normal width in the weight next to `weight`, as far as there is one. Empty when there is no such
  /// family.
  [[nodiscard]] virtual std::shared_ptr<const Font> fontInFamily(std::string_view family, double size,
                                                                 FontWeight weight) = 0;
  /// The best installed face that covers a language ("ja", "zh-Hant", "he"), else the system face; never
  /// empty.
  [[nodiscard]] virtual std::shared_ptr<const Font> fontForLanguage(std::string_view language, double size,
                                                                    FontWeight weight) = 0;
  /// Makes the faces of a file known to this process alone, until it ends. A name that is registered already
  /// keeps its face. A file that is broken, cut short or no font registers nothing.
  virtual FontRegistration registerFile(const std::string& path) = 0;
  /// Shapes a paragraph in several fonts, with fallback; line breaks and tabs in it count as spaces. The runs
  /// cover the text in order; what they leave over takes the last one's font. Without runs there is no
  /// text.
  [[nodiscard]] virtual std::shared_ptr<const TextParagraph> shape(std::u16string_view text,
                                                                   std::span<const TextRun> runs,
                                                                   TextDirection direction) = 0;
  /// The direction of the first letter of the text that has one, those inside of isolates left out; absent
  /// when there is none. The rules P2 and P3 of the Unicode bidirectional algorithm.
  [[nodiscard]] virtual std::optional<TextDirection> strongDirection(std::u16string_view text) const = 0;
};

}  // namespace bkuk::host
