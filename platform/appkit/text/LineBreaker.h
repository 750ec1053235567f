#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "host/Text.h"
#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// Where a line ends, as indexes into its paragraph.
struct LineEnd {
  std::size_t end = 0;      ///< where the next line begins
  std::size_t visible = 0;  ///< where the white space begins that hangs at the end
  CGFloat width = 0;        ///< of what is visible, in points
};

/// Breaks a shaped paragraph into lines.
class LineBreaker {
 public:
  /// `charWrapping` breaks between any two characters, every other mode between words, and within a word only
  /// where it is longer than a line. The paragraph and the text must outlive the breaker.
  LineBreaker(const host::TextParagraph& paragraph, std::u16string_view text, NSLineBreakMode mode)
      : paragraph_(paragraph), text_(text), advances_(paragraph.advances()), mode_(mode) {}

  /// The end of the line that begins at `from`, which is below the paragraph's length. A line holds at least
  /// one character, however narrow it is.
  [[nodiscard]] LineEnd next(std::size_t from, CGFloat width) const;

 private:
  [[nodiscard]] LineEnd cut(std::size_t from, std::size_t end) const;
  [[nodiscard]] std::size_t breakBefore(std::size_t from, std::size_t tooFar) const;

  const host::TextParagraph& paragraph_;
  std::u16string_view text_;
  std::span<const double> advances_;
  NSLineBreakMode mode_;
};

/// Whether a code unit is white space that may hang at the end of a line.
[[nodiscard]] constexpr bool isLineSpace(char16_t c) {
  return c == u' ' || c == u'\t' || c == 0x1680 || (c >= 0x2000 && c <= 0x200A && c != 0x2007) || c == 0x3000;
}

}  // namespace bkuk
