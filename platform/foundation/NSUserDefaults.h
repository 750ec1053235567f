#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// The process's settings by key. What the application sets is visible at once and lasts as long as the
/// process.
///
/// "AppleLanguages", an array of strings, answers the desktop's languages, best first, as tags with hyphens
/// ("zh-Hans-CN"), unless the application has set its own.
class NSUserDefaults final : public NSObject {
 public:
  struct Value;
  using Array = std::vector<Value>;
  using Data = std::vector<std::byte>;
  struct Value : std::variant<bool, std::int64_t, double, std::string, Data, Array> {
    using variant::variant;
    // Without these a literal text would become a Boolean, and a number would not know what to be.
    Value(const char* text) : variant(std::string(text)) {}
    Value(std::string_view text) : variant(std::string(text)) {}
    Value(int number) : variant(std::int64_t{number}) {}
  };

  NSUserDefaults() = default;
  [[nodiscard]] static NSUserDefaults& standard();

  void set(Value value, std::string_view forKey);
  void removeObject(std::string_view forKey);

  /// Absent when nothing is set. So are the following, also when the value is of another type.
  [[nodiscard]] std::optional<Value> object(std::string_view forKey) const;
  [[nodiscard]] std::optional<Array> array(std::string_view forKey) const;
  /// Absent also when an element is no string.
  [[nodiscard]] std::optional<std::vector<std::string>> stringArray(std::string_view forKey) const;
  [[nodiscard]] std::optional<std::string> string(std::string_view forKey) const;
  [[nodiscard]] std::optional<Data> data(std::string_view forKey) const;

  /// False, respectively 0, when the key is missing or holds something else. An integer reads as a double
  /// too.
  [[nodiscard]] bool bool_(std::string_view forKey) const;
  [[nodiscard]] std::int64_t integer(std::string_view forKey) const;
  [[nodiscard]] double double_(std::string_view forKey) const;

 private:
  std::map<std::string, Value, std::less<>> values_;
};

}  // namespace bkuk
