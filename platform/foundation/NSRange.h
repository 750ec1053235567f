#pragma once

#include <cstddef>
#include <string_view>  // std::hash

namespace bkuk {

/// The location of what was not found.
inline constexpr std::size_t NSNotFound = 9223372036854775807;

/// Part of a text, in UTF-16 units.
struct NSRange {
  std::size_t location = 0;
  std::size_t length = 0;
  bool operator==(const NSRange&) const = default;
};

/// The first location behind the range. A sum that overflows is a trap.
[[nodiscard]] std::size_t NSMaxRange(NSRange range);
/// What both have in common; empty, at some location, when that is nothing.
[[nodiscard]] NSRange NSIntersectionRange(NSRange a, NSRange b);
[[nodiscard]] constexpr bool NSLocationInRange(std::size_t location, NSRange range) {
  return location >= range.location && location - range.location < range.length;
}

}  // namespace bkuk

template <>
struct std::hash<bkuk::NSRange> {
  std::size_t operator()(bkuk::NSRange range) const noexcept {
    return std::hash<std::size_t>{}(range.location * 31 + range.length);
  }
};
