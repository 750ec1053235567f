#pragma once

#include <concepts>
#include <optional>
#include <utility>

#include "BrenvikUIKit/interaction/BKUKInteractionState.h"

namespace bkuk {

/// A value that says nothing, an empty `Ref`, is as good as none.
template <typename T>
[[nodiscard]] std::optional<T> givenOrAbsent(std::optional<T> value) {
  if constexpr (requires { *value == nullptr; }) {
    if (value && *value == nullptr) value.reset();
  }
  return value;
}

/// The arguments of `BKUKStatefulSettings::with`: each given one replaces the value of its state.
template <typename T>
struct BKUKStatefulChanges {
  std::optional<T> normal{};
  std::optional<T> hover{};
  std::optional<T> pressed{};
  std::optional<T> disabled{};
};

template <typename T>
class BKUKStatefulSettings;

/// What the presets of every type of element start from.
struct BKUKStatefulPresetsBase {
  /// Settings are changed by `BKUKStatefulSettings::with`; the presets of a type may add further forms.
  void with() const = delete;
  bool operator==(const BKUKStatefulPresetsBase&) const = default;
};

/// What settings of one type of element offer beyond the values by state. Nothing, unless the header that
/// names such settings specializes it: with ready settings and further members, which the settings inherit,
/// and with functions `make`, whose arguments the settings are then constructed from. Include that header
/// wherever settings of the type are used.
template <typename T>
class BKUKStatefulPresets : public BKUKStatefulPresetsBase {};

/// The arguments are those that settings of the type are made of, other than values by state.
template <typename T, typename... Arguments>
concept BKUKStatefulIngredients = requires(const Arguments&... arguments) {
  { BKUKStatefulPresets<T>::make(arguments...) } -> std::same_as<BKUKStatefulSettings<T>>;
};

/// A value by interaction state: one for the normal state, and where it differs one for the others. A state
/// without a value of its own takes the normal one, never that of another state. An empty `Ref` is no value.
///
/// An immutable value; objects in it are shared between copies.
template <typename T>
class BKUKStatefulSettings : public BKUKStatefulPresets<T> {
 public:
  using Changes = BKUKStatefulChanges<T>;

  /// The same value for all states.
  BKUKStatefulSettings(T normal) : normal_(std::move(normal)) {}
  /// An absent value makes its state take the normal one.
  BKUKStatefulSettings(T normal, std::optional<T> hover, std::optional<T> pressed = {},
                       std::optional<T> disabled = {})
      : normal_(std::move(normal)),
        hover_(givenOrAbsent(std::move(hover))),
        pressed_(givenOrAbsent(std::move(pressed))),
        disabled_(givenOrAbsent(std::move(disabled))) {}
  /// What the type of element is made of in further ways; see its header.
  template <typename... Arguments>
  requires BKUKStatefulIngredients<T, Arguments...>
  explicit(sizeof...(Arguments) == 1) BKUKStatefulSettings(const Arguments&... arguments)
      : BKUKStatefulSettings(BKUKStatefulPresets<T>::make(arguments...)) {}

  [[nodiscard]] const T& normal() const { return normal_; }
  [[nodiscard]] const T& hover() const { return hover_ ? *hover_ : normal_; }
  [[nodiscard]] const T& pressed() const { return pressed_ ? *pressed_ : normal_; }
  [[nodiscard]] const T& disabled() const { return disabled_ ? *disabled_ : normal_; }

  [[nodiscard]] const T& operator[](BKUKInteractionState state) const {
    switch (state) {
      case BKUKInteractionState::hover:
        return hover();
      case BKUKInteractionState::pressed:
        return pressed();
      case BKUKInteractionState::disabled:
        return disabled();
      case BKUKInteractionState::normal:
        break;
    }
    return normal();
  }

  using BKUKStatefulPresets<T>::with;
  /// A setting in which all states have their own value: the given one, else the one that this setting
  /// answers for the state. So a new normal value leaves the look of the other states as it was.
  [[nodiscard]] BKUKStatefulSettings with(Changes changes) const {
    const auto value = [](std::optional<T>& given, const T& present) {
      return givenOrAbsent(std::move(given)).value_or(present);
    };
    return {value(changes.normal, normal()), value(changes.hover, hover()), value(changes.pressed, pressed()),
            value(changes.disabled, disabled())};
  }

  /// What `convert` makes of each state's value; all four states have their own.
  template <typename Convert>
  [[nodiscard]] auto map(Convert&& convert) const {
    using Result = BKUKStatefulSettings<std::decay_t<decltype(convert(normal()))>>;
    return Result(convert(normal()), convert(hover()), convert(pressed()), convert(disabled()));
  }

  bool operator==(const BKUKStatefulSettings&) const = default;

 private:
  T normal_;
  std::optional<T> hover_;
  std::optional<T> pressed_;
  std::optional<T> disabled_;
};

}  // namespace bkuk
