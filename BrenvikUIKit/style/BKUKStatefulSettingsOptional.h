#pragma once

#include <optional>
#include <utility>

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A value by interaction state that may be absent in any of them. A state without a value of its own takes
/// the normal one, which may be absent too. A setting that `with` has made takes nothing from the normal
/// state: all its states have their own value or their own absence.
template <typename T>
class BKUKStatefulSettingsOptional {
 public:
  using Changes = BKUKStatefulChanges<T>;

  BKUKStatefulSettingsOptional(std::optional<T> normal = {}, std::optional<T> hover = {},
                               std::optional<T> pressed = {}, std::optional<T> disabled = {})
      : normal_(std::move(normal)),
        hover_(std::move(hover)),
        pressed_(std::move(pressed)),
        disabled_(std::move(disabled)) {}

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

  /// Each given value replaces that of its state; the others keep what this setting answers for them, an
  /// absent value too.
  [[nodiscard]] BKUKStatefulSettingsOptional with(Changes changes) const {
    const auto value = [](std::optional<T>& given, const std::optional<T>& present) {
      return given ? std::move(given) : present;
    };
    BKUKStatefulSettingsOptional changed(value(changes.normal, normal()), value(changes.hover, hover()),
                                         value(changes.pressed, pressed()),
                                         value(changes.disabled, disabled()));
    changed.takesFromNormal_ = false;
    return changed;
  }

  bool operator==(const BKUKStatefulSettingsOptional&) const = default;

 private:
  [[nodiscard]] const std::optional<T>& resolved(const std::optional<T>& own) const {
    return own || !takesFromNormal_ ? own : normal_;
  }

  std::optional<T> normal_;
  std::optional<T> hover_;
  std::optional<T> pressed_;
  std::optional<T> disabled_;
  bool takesFromNormal_ = true;
};

}  // namespace bkuk
