#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/NSRange.h"

namespace bkuk {

/// A text as UTF-16 code units: what attributed strings and their ranges count in. A value.
class NSString {
 public:
  NSString() = default;
  /// Valid UTF-8 converts without loss; each ill-formed piece becomes one U+FFFD.
  NSString(std::string_view utf8);
  NSString(const char* utf8) : NSString(std::string_view(utf8)) {}
  explicit NSString(std::u16string units) : units_(std::move(units)) {}

  /// In UTF-16 code units.
  [[nodiscard]] std::size_t length() const { return units_.size(); }
  [[nodiscard]] std::u16string_view units() const { return units_; }
  /// A surrogate without its other half becomes U+FFFD.
  [[nodiscard]] std::string utf8() const;

  /// An index or range beyond the end is a trap.
  [[nodiscard]] char16_t characterAt(std::size_t index) const;
  [[nodiscard]] NSString substring(NSRange range) const;
  void append(std::u16string_view units) { units_.append(units); }
  /// `units` may be part of this text.
  void replaceCharacters(NSRange range, std::u16string_view units);
  /// Makes room for a text of so many code units that is to be appended piece by piece.
  void reserve(std::size_t length) { units_.reserve(length); }

  /// The first occurrence, code unit by code unit; {NSNotFound, 0} when there is none. An empty text is not
  /// found.
  [[nodiscard]] NSRange range(const NSString& of) const;
  /// The pieces between the separators, empty ones included; the whole when there is no separator.
  [[nodiscard]] std::vector<NSString> components(const NSString& separatedBy) const;

  bool operator==(const NSString&) const = default;

 private:
  [[nodiscard]] std::size_t find(std::u16string_view text, std::size_t from) const;

  std::u16string units_;
};

}  // namespace bkuk

template <>
struct std::hash<bkuk::NSString> {
  std::size_t operator()(const bkuk::NSString& text) const noexcept {
    return std::hash<std::u16string_view>{}(text.units());
  }
};
