#pragma once

#include <cstddef>
#include <vector>

#include "platform/appkit/text/LineFragment.h"
#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/appkit/text/NSUserInterfaceLayoutDirection.h"

namespace bkuk {

/// The room that a text is laid out in, and how. Lengths are in points.
struct TextLayoutOptions {
  NSSize size{};  ///< 0 or less, or more than a text ever takes, for no limit along an axis
  CGFloat lineFragmentPadding = 0;
  std::size_t maximumNumberOfLines = 0;  ///< 0 for no limit
  /// A truncating mode marks with an ellipsis that there are more lines than the maximum.
  NSLineBreakMode lineBreakMode = NSLineBreakMode::wordWrapping;
  bool usesFontLeading = true;
  bool wraps = true;  ///< false: nothing but breaks in the text ends a line
  /// Of the interface: what `natural` stands for as an alignment, and as the direction of text without
  /// letters.
  NSUserInterfaceLayoutDirection direction = NSUserInterfaceLayoutDirection::leftToRight;
};

/// The lines of a text, or of as much of it as there was room for. Immutable; valid as long as the text and
/// its attributes stay as they are.
class TextLayout {
 public:
  /// From the index `from` on. At least one line is set, however little room there is.
  TextLayout(const NSAttributedString& text, std::size_t from, const TextLayoutOptions& options);

  [[nodiscard]] const std::vector<LineFragment>& lines() const { return lines_; }
  /// What the lines show.
  [[nodiscard]] NSRange range() const { return range_; }
  /// Around the used rectangles of the lines; zero without lines.
  [[nodiscard]] NSRect usedRect() const;

  /// The line that holds the character, the last one for what is behind it. There must be a line.
  [[nodiscard]] const LineFragment& lineOf(std::size_t character) const;
  /// The line at that height, the first above it and the last below it. There must be a line.
  [[nodiscard]] const LineFragment& lineAt(CGFloat y) const;
  /// The lines that show something of the range.
  [[nodiscard]] std::span<const LineFragment> linesOf(NSRange range) const;

 private:
  NSRange range_;
  std::vector<LineFragment> lines_;
};

/// The size of a text laid out in that room, without keeping its lines. Quick for short texts of one
/// attribute run.
[[nodiscard]] NSSize textLayoutSize(const NSAttributedString& text, const TextLayoutOptions& options);

}  // namespace bkuk
