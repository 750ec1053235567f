#pragma once

#include <string_view>

#include "platform/foundation/CountedText.h"

namespace bkuk {

/// The name of an operation that an object performs by name. Comparing and hashing cost a
/// pointer; making one from a string costs a look-up, so keep those that are used often.
class Selector {
 public:
  /// The absent selector.
  constexpr Selector() = default;
  Selector(std::string_view name) : name_(name) {}
  Selector(const char* name) : Selector(std::string_view(name)) {}

  [[nodiscard]] std::string_view name() const { return name_.view(); }
  explicit operator bool() const { return static_cast<bool>(name_); }
  bool operator==(const Selector&) const = default;

 private:
  friend struct std::hash<Selector>;
  CountedText name_;
};

}  // namespace bkuk

template <>
struct std::hash<bkuk::Selector> {
  std::size_t operator()(const bkuk::Selector& selector) const noexcept {
    return std::hash<bkuk::CountedText>{}(selector.name_);
  }
};
