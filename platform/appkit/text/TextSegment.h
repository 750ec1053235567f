#pragma once

#include <cstddef>
#include <string_view>

#include "platform/foundation/NSRange.h"

namespace bkuk {

/// What stands between two breaks of a text: a paragraph, or a part of one that ends with a line break.
struct TextSegment {
  NSRange range;  ///< without the break
  std::size_t breakLength = 0;
  bool endsParagraph = false;

  [[nodiscard]] std::size_t end() const { return NSMaxRange(range) + breakLength; }
};

/// The segment that begins at `from`. Line feed, carriage return, both together, next line (U+0085) and
/// paragraph separator (U+2029) end paragraphs; vertical tab, form feed and line separator (U+2028) end
/// lines.
[[nodiscard]] TextSegment textSegmentAt(std::u16string_view text, std::size_t from);

}  // namespace bkuk
