#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <utility>

#include "BrenvikUIKit/interaction/BKUKInteractionState.h"
#include "platform/appkit/NSTextAlignment.h"
#include "platform/foundation/Ref.h"

namespace bkuk {

class BKUKBrandFont;
class BKUKFill;
class NSColor;
enum class BKUKFontType : std::uint8_t;
struct BKUKFontChanges;
struct BKUKFontSettings;
struct BKUKShadowSettings;

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

/// A value by interaction state: one for the normal state, and where it differs one for the others. A state
/// without a value of its own takes the normal one, never that of another state. An empty `Ref` is no value.
///
/// An immutable value; objects in it are shared between copies. What belongs to one type of element only
/// (`clear`, `noShadow` and others) is declared in the header that names the type.
template <typename T>
class BKUKStatefulSettings {
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
  /// A fill of each state's colour; all four states have their own.
  template <typename Color>
  requires std::same_as<T, BKUKFill> && std::same_as<Color, Ref<NSColor>>
  explicit BKUKStatefulSettings(const BKUKStatefulSettings<Color>& statefulColor)
      : BKUKStatefulSettings(statefulColor.map([](const Color& color) { return T::color(color); })) {}
  /// Text in each state's colour and otherwise alike: `size` and `spacing` are in points. All four states
  /// have their own.
  BKUKStatefulSettings(const BKUKStatefulSettings<Ref<NSColor>>& colors, double size, BKUKFontType type,
                       NSTextAlignment alignment,
                       std::optional<float> spacing = {}) requires std::same_as<T, BKUKFontSettings>;
  /// The same in the size and type that the application gives the role.
  BKUKStatefulSettings(BKUKBrandFont style, const BKUKStatefulSettings<Ref<NSColor>>& colors,
                       NSTextAlignment alignment) requires std::same_as<T, BKUKFontSettings>;

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

  /// A setting in which all states have their own value: the given one, else the one that this setting
  /// answers for the state. So a new normal value leaves the look of the other states as it was.
  [[nodiscard]] BKUKStatefulSettings with(Changes changes) const {
    const auto value = [](std::optional<T>& given, const T& present) {
      return givenOrAbsent(std::move(given)).value_or(present);
    };
    return {value(changes.normal, normal()), value(changes.hover, hover()), value(changes.pressed, pressed()),
            value(changes.disabled, disabled())};
  }

  /// Each state's text in its colour of `colors` and changed as `changes` says, whose own colour does not
  /// count.
  [[nodiscard]] BKUKStatefulSettings with(
      const BKUKStatefulSettings<Ref<NSColor>>& colors,
      const BKUKFontChanges& changes) const requires std::same_as<T, BKUKFontSettings>;

  /// What `convert` makes of each state's value; all four states have their own.
  template <typename Convert>
  [[nodiscard]] auto map(Convert&& convert) const {
    using Result = BKUKStatefulSettings<std::decay_t<decltype(convert(normal()))>>;
    return Result(convert(normal()), convert(hover()), convert(pressed()), convert(disabled()));
  }

  // Of colours: see `BKUKStatefulColors.h`. Of fills, shadows and numbers: see `BKUKStatefulFills.h`,
  // `BKUKStatefulShadows.h` and `BKUKStatefulNumbers.h`. Of text: see `BKUKStatefulFonts.h`.

  [[nodiscard]] static const BKUKStatefulSettings& clear() requires std::same_as<T, Ref<NSColor>> ||
      std::same_as<T, BKUKFill>;
  [[nodiscard]] static const BKUKStatefulSettings& noShadow() requires std::same_as<T, BKUKShadowSettings>;
  [[nodiscard]] static const BKUKStatefulSettings& basicImageButton() requires std::same_as<T, float>;
  [[nodiscard]] static BKUKStatefulSettings hyperlinkPrimary() requires std::same_as<T, BKUKFontSettings>;
  [[nodiscard]] static BKUKStatefulSettings hyperlinkSecondary() requires std::same_as<T, BKUKFontSettings>;
  [[nodiscard]] BKUKStatefulSettings<Ref<NSColor>> convertToStatefulColor()
      const requires std::same_as<T, BKUKFill>;

  bool operator==(const BKUKStatefulSettings&) const = default;

 private:
  T normal_;
  std::optional<T> hover_;
  std::optional<T> pressed_;
  std::optional<T> disabled_;
};

}  // namespace bkuk
