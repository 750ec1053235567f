#pragma once

#include <optional>
#include <utility>

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A value by interaction state that may be absent in any of them. A state without a value of its own takes
/// the normal one, which may be absent too; so does one whose own value is an empty `Ref`.
template <typename T>
class BKUKStatefulSettingsOptional {
 public:
  using Changes = BKUKStatefulChanges<T>;

  BKUKStatefulSettingsOptional(std::optional<T> normal = {}, std::optional<T> hover = {},
                               std::optional<T> pressed = {}, std::optional<T> disabled = {})
      : normal_(givenOrAbsent(std::move(normal))),
        hover_(givenOrAbsent(std::move(hover))),
        pressed_(givenOrAbsent(std::move(pressed))),
        disabled_(givenOrAbsent(std::move(disabled))) {}

  [[nodiscard]] const std::optional<T>& normal() const { return normal_; }
  [[nodiscard]] const std::optional<T>& hover() const { return resolved(hover_); }
  [[nodiscard]] const std::optional<T>& pressed() const { return resolved(pressed_); }
  [[nodiscard]] const std::optional<T>& disabled() const { return resolved(disabled_); }

  [[nodiscard]] const std::optional<T>& operator[](BKUKInteractionState state) const {
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

  /// Each given value replaces that of its state; the others keep what this setting answers for them. What it
  /// answers as absent stays open: such a state takes the normal value once there is one.
  [[nodiscard]] BKUKStatefulSettingsOptional with(Changes changes) const {
    const auto value = [](std::optional<T>& given, const std::optional<T>& present) {
      auto own = givenOrAbsent(std::move(given));
      return own ? own : present;
    };
    return {value(changes.normal, normal()), value(changes.hover, hover()), value(changes.pressed, pressed()),
            value(changes.disabled, disabled())};
  }

  bool operator==(const BKUKStatefulSettingsOptional&) const = default;

 private:
  [[nodiscard]] const std::optional<T>& resolved(const std::optional<T>& own) const {
    return own ? own : normal_;
  }

  std::optional<T> normal_;
  std::optional<T> hover_;
  std::optional<T> pressed_;
  std::optional<T> disabled_;
};

}  // namespace bkuk
