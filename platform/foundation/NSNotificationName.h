#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace bkuk {

/// The interned name of a notification. Names are equal when their texts are; comparing costs a pointer,
/// making one from a string a look-up, so keep those that are posted often.
class NSNotificationName {
 public:
  /// The absent name, which as a filter means any.
  constexpr NSNotificationName() = default;
  NSNotificationName(std::string_view text);
  NSNotificationName(const char* text) : NSNotificationName(std::string_view(text)) {}

  [[nodiscard]] std::string_view text() const {
    return text_ ? std::string_view(*text_) : std::string_view();
  }
  explicit operator bool() const { return text_ != nullptr; }
  bool operator==(const NSNotificationName&) const = default;

 private:
  friend struct std::hash<NSNotificationName>;
  const std::string* text_ = nullptr;
};

}  // namespace bkuk

template <>
struct std::hash<bkuk::NSNotificationName> {
  std::size_t operator()(bkuk::NSNotificationName name) const noexcept {
    return std::hash<const std::string*>{}(name.text_);
  }
};
