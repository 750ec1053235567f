#pragma once

#include <QtGui/QFont>
#include <cstddef>
#include <string_view>
#include <vector>

#include "host/Text.h"

namespace bkuk::host {

/// Code units that run in one direction beside each other, in the order of the text.
struct DirectedSpan {
  std::size_t from = 0;
  std::size_t to = 0;
  TextDirection direction = TextDirection::leftToRight;
  std::size_t rank = 0;  ///< the place from the left, 0 first
};

/// The spans of a paragraph that is set on one line. On a line that holds a part of the paragraph they keep
/// their order among themselves.
///
/// That is so because of two code units the one that comes first in the text stands left exactly when the
/// lowest level of embedding between them is even, which nothing outside can change. Only the white space at
/// the end of a line is a matter of the line.
[[nodiscard]] std::vector<DirectedSpan> directedSpans(std::u16string_view text, TextDirection direction,
                                                      const QFont& font);

}  // namespace bkuk::host
