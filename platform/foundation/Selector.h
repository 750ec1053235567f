#pragma once

#include <string>
#include <string_view>

namespace bkuk {

/// The interned name of an operation that an object performs by name. Comparing and hashing cost a
/// pointer; making one from a string costs a look-up, so keep those that are used often.
class Selector {
 public:
  /// The absent selector.
  constexpr Selector() = default;
  Selector(std::string_view name);
  Selector(const char* name) : Selector(std::string_view(name)) {}

  [[nodiscard]] std::string_view name() const {
    return name_ ? std::string_view(*name_) : std::string_view();
  }
  explicit operator bool() const { return name_ != nullptr; }
  bool operator==(const Selector&) const = default;

 private:
  friend struct std::hash<Selector>;
  const std::string* name_ = nullptr;
};

}  // namespace bkuk

template <>
struct std::hash<bkuk::Selector> {
  std::size_t operator()(bkuk::Selector selector) const noexcept {
    return std::hash<const std::string*>{}(selector.name_);
  }
};
