#pragma once

#include <cstddef>
#include <vector>

#include "host/Text.h"
#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/foundation/NSAttributedString.h"

namespace bkuk {

// What the attributes of a text say about setting it.

/// The font of the attributes; without one the desktop's interface face at 12 points.
[[nodiscard]] Ref<NSFont> fontOf(const NSAttributeDictionary& attributes);
[[nodiscard]] Ref<NSParagraphStyle> paragraphStyleOf(const NSAttributeDictionary& attributes);
/// How far the text is raised above its baseline, in points.
[[nodiscard]] CGFloat baselineOffsetOf(const NSAttributeDictionary& attributes);

/// How far a line reaches from its baseline, in points. Both distances are positive.
struct LineMetrics {
  CGFloat ascent = 0;
  CGFloat descent = 0;
  CGFloat leading = 0;

  /// Makes room for text with these attributes.
  void include(const NSAttributeDictionary& attributes);
  /// For everything in the range.
  [[nodiscard]] static LineMetrics of(const NSAttributedString& text, NSRange range);
};

/// The font of a text and the spaces in it. Holds the font.
struct TextRun {
  Ref<NSFont> font;
  CGFloat kern = 0;  ///< points added after each character
  bool usesPairKerning = true;

  [[nodiscard]] static TextRun of(const NSAttributeDictionary& attributes);
  /// As the host takes it. Valid as long as the run.
  [[nodiscard]] host::TextRun hostRun(std::size_t length) const {
    return {length, &font->face()->hostFont(), kern, usesPairKerning};
  }
};

/// The fonts and spacings of a stretch of text, as the host takes them. Holds the fonts.
class TextRuns {
 public:
  TextRuns() = default;
  TextRuns(const NSAttributedString& text, NSRange range);

  [[nodiscard]] const std::vector<host::TextRun>& runs() const { return runs_; }
  /// Takes over the runs of the indexes from `from` up to `to`.
  void append(const TextRuns& other, std::size_t from, std::size_t to);
  /// Adds to the space behind every character.
  void addKern(CGFloat kern);

 private:
  std::vector<host::TextRun> runs_;
  std::vector<Ref<NSFont>> fonts_;
};

}  // namespace bkuk
