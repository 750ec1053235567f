#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSString.h"

namespace bkuk {

/// What a text attribute is set to: a number, a Boolean, a string or an object. A value.
class NSAttributeValue {
 public:
  template <std::integral T>
  NSAttributeValue(T number) : value_(static_cast<std::int64_t>(number)) {}
  /// An enumeration is kept as its number.
  template <typename T>
  requires std::is_enum_v<T> NSAttributeValue(T value) : value_(static_cast<std::int64_t>(value)) {}
  NSAttributeValue(bool flag) : value_(flag) {}
  NSAttributeValue(float number) : value_(number) {}
  NSAttributeValue(double number) : value_(number) {}
  NSAttributeValue(NSString string) : value_(std::move(string)) {}
  NSAttributeValue(const char* utf8) : value_(NSString(utf8)) {}
  /// An absent object is a trap: an attribute without a value is left out.
  template <typename T>
  NSAttributeValue(const Ref<T>& object) : NSAttributeValue(Ref<NSObject>(object)) {}
  NSAttributeValue(Ref<NSObject> object);

  /// The number as the widest type of its kind, whichever type it was stored as; absent for everything else.
  [[nodiscard]] std::optional<double> number() const;
  /// The whole number; absent for everything else, a fraction included.
  [[nodiscard]] std::optional<std::int64_t> integer() const;
  [[nodiscard]] std::optional<bool> boolean() const;
  /// Null for what is not a string.
  [[nodiscard]] const NSString* string() const { return std::get_if<NSString>(&value_); }
  /// The object as a `T`, null when it is none.
  template <typename T = NSObject>
  [[nodiscard]] T* object() const {
    const auto* held = std::get_if<Ref<NSObject>>(&value_);
    return held ? dynamic_cast<T*>(held->get()) : nullptr;
  }
  /// Whether the number was stored with 32 bits.
  [[nodiscard]] bool isFloat() const { return std::holds_alternative<float>(value_); }

  /// Numbers are equal by value whatever type they were stored as, objects when `isEqual` says so.
  bool operator==(const NSAttributeValue& other) const;

 private:
  std::variant<bool, std::int64_t, float, double, NSString, Ref<NSObject>> value_;
};

}  // namespace bkuk
