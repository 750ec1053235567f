#pragma once

#include <string_view>

#include "platform/foundation/CountedText.h"

namespace bkuk {

/// The name of a notification. Names are equal when their texts are; comparing costs a pointer, making one
/// from a string a look-up, so keep those that are posted often. A name that nobody holds is forgotten.
class NSNotificationName {
 public:
  /// The absent name, which as a filter means any.
  constexpr NSNotificationName() = default;
  NSNotificationName(std::string_view text) : text_(text) {}
  NSNotificationName(const char* text) : NSNotificationName(std::string_view(text)) {}

  /// Valid for as long as somebody holds the name.
  [[nodiscard]] std::string_view text() const { return text_.view(); }
  explicit operator bool() const { return bool(text_); }
  bool operator==(const NSNotificationName&) const = default;

 private:
  friend struct std::hash<NSNotificationName>;
  CountedText text_;
};

}  // namespace bkuk

template <>
struct std::hash<bkuk::NSNotificationName> {
  std::size_t operator()(const bkuk::NSNotificationName& name) const noexcept {
    return std::hash<bkuk::CountedText>{}(name.text_);
  }
};
