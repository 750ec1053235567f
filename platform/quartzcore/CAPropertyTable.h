#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

#include "platform/quartzcore/CAValue.h"

namespace bkuk {

namespace detail {

template <typename T>
struct CAValueOf {
  static CAValue wrap(const T& value) { return value; }
  static std::optional<T> unwrap(const CAValue& value) {
    const auto* typed = std::get_if<T>(&value);
    return typed ? std::optional<T>(*typed) : std::nullopt;
  }
};

// Numbers and Booleans stand for each other.
inline std::optional<double> numberIn(const CAValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? 1 : 0;
  return std::nullopt;
}

template <>
struct CAValueOf<double> {
  static CAValue wrap(double value) { return value; }
  static std::optional<double> unwrap(const CAValue& value) { return numberIn(value); }
};

template <>
struct CAValueOf<bool> {
  static CAValue wrap(bool value) { return value; }
  static std::optional<bool> unwrap(const CAValue& value) {
    const auto number = numberIn(value);
    return number ? std::optional<bool>(*number != 0) : std::nullopt;
  }
};

template <>
struct CAValueOf<unsigned> {
  static CAValue wrap(unsigned value) { return static_cast<double>(value); }
  static std::optional<unsigned> unwrap(const CAValue& value) {
    const auto number = numberIn(value);
    if (!number || !(*number >= 0) || *number > std::numeric_limits<unsigned>::max()) return std::nullopt;
    return static_cast<unsigned>(*number);
  }
};

// What is absent reads as no value, and no value writes it.
template <typename T>
struct CAValueOf<std::optional<T>> {
  static CAValue wrap(const std::optional<T>& value) { return value ? CAValue(*value) : CAValue(); }
  static std::optional<std::optional<T>> unwrap(const CAValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return std::optional<std::optional<T>>(std::in_place);
    const auto* typed = std::get_if<T>(&value);
    return typed ? std::optional(std::optional<T>(*typed)) : std::nullopt;
  }
};

template <typename T>
struct CAValueOf<std::vector<Ref<T>>> {
  static CAValue wrap(const std::vector<Ref<T>>& objects) {
    return objects.empty() ? CAValue() : CAValue(std::vector<Ref<NSObject>>(objects.begin(), objects.end()));
  }
  static std::optional<std::vector<Ref<T>>> unwrap(const CAValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return std::vector<Ref<T>>();
    const auto* objects = std::get_if<std::vector<Ref<NSObject>>>(&value);
    if (!objects) return std::nullopt;
    std::vector<Ref<T>> typed;
    for (const auto& object : *objects) {
      if (auto cast = as<T>(object)) typed.push_back(std::move(cast));
    }
    return typed;
  }
};

template <typename T>
struct CAValueOf<Ref<T>> {
  static CAValue wrap(const Ref<T>& object) { return object ? CAValue(Ref<NSObject>(object)) : CAValue(); }
  static std::optional<Ref<T>> unwrap(const CAValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return Ref<T>();
    const auto* object = std::get_if<Ref<NSObject>>(&value);
    if (!object) return std::nullopt;
    auto typed = as<T>(*object);
    return typed || !*object ? std::optional(std::move(typed)) : std::nullopt;
  }
};

}  // namespace detail

/// How a property of a class of layers is read and written by key.
template <typename Layer>
struct CAProperty {
  std::string_view key;
  CAValue (*get)(const Layer& layer);
  /// Ignores a value of another type.
  void (*set)(Layer& layer, const CAValue& value);

  template <auto Getter, auto Setter>
  static constexpr CAProperty of(std::string_view key) {
    return {key,
            [](const Layer& layer) {
              using T = std::remove_cvref_t<decltype((layer.*Getter)())>;
              return detail::CAValueOf<T>::wrap((layer.*Getter)());
            },
            [](Layer& layer, const CAValue& value) {
              using T = std::remove_cvref_t<decltype((layer.*Getter)())>;
              if (const auto typed = detail::CAValueOf<T>::unwrap(value)) (layer.*Setter)(*typed);
            }};
  }
};

/// None when the table has no property of that name.
template <typename Layer, std::size_t count>
[[nodiscard]] const CAProperty<Layer>* findProperty(const std::array<CAProperty<Layer>, count>& table,
                                                    std::string_view key) {
  const auto found = std::ranges::find(table, key, &CAProperty<Layer>::key);
  return found == table.end() ? nullptr : &*found;
}

}  // namespace bkuk
