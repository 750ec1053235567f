#pragma once

#include <memory>
#include <string_view>

#include "host/Text.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/appkit/text/TextRuns.h"
#include "platform/foundation/NSRange.h"

namespace bkuk {

/// A line of text that is to be made to fit.
struct LongLine {
  std::u16string_view text;
  const TextRuns& runs;
  host::TextDirection direction = host::TextDirection::leftToRight;
  /// The text as it is, shaped.
  std::shared_ptr<const host::TextParagraph> whole;
};

/// A line that fits, or of which nothing more can be left out.
struct FittedLine {
  std::shared_ptr<const host::TextParagraph> paragraph;
  /// The range of the text for which the paragraph has an ellipsis; empty when it shows it all.
  NSRange hidden;
  bool hasEllipsis = false;
};

/// Makes a line fit into `width` points: as it is, with its letters moved together where the style allows it
/// and that is enough, or with an ellipsis in place of its head, its middle or its tail, as `mode` says.
/// Characters stay whole; an ellipsis is left even where there is no room for one. `isCutOff` says that text
/// after this line is not shown, so that even a line that fits ends in an ellipsis.
[[nodiscard]] FittedLine fitLine(const LongLine& line, CGFloat width, NSLineBreakMode mode,
                                 const NSParagraphStyle& style, bool isCutOff = false);

/// Whether the mode shows one line that ends, or begins, with an ellipsis.
[[nodiscard]] constexpr bool isTruncating(NSLineBreakMode mode) {
  return mode >= NSLineBreakMode::truncatingHead;
}

}  // namespace bkuk
