#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/foundation/NSObject.h"

namespace bkuk {

inline constexpr std::string_view NSAppearanceNameAqua = "NSAppearanceNameAqua";
inline constexpr std::string_view NSAppearanceNameDarkAqua = "NSAppearanceNameDarkAqua";
inline constexpr std::string_view NSAppearanceNameVibrantLight = "NSAppearanceNameVibrantLight";
inline constexpr std::string_view NSAppearanceNameVibrantDark = "NSAppearanceNameVibrantDark";
inline constexpr std::string_view NSAppearanceNameAccessibilityAqua = "NSAppearanceNameAccessibilityAqua";
inline constexpr std::string_view NSAppearanceNameAccessibilityDarkAqua =
    "NSAppearanceNameAccessibilityDarkAqua";
/// Of a desktop that says neither light nor dark: it stems from no family.
inline constexpr std::string_view NSAppearanceNameUnknown = "NSAppearanceNameUnknown";

/// A look of the desktop, known by its name: light, dark, their high-contrast forms. Immutable.
class NSAppearance : public NSObject {
 public:
  /// The appearance of that name. The names above have one object each, so that asking again costs a
  /// look-up and no allocation; any other name makes an appearance that stems from no family.
  [[nodiscard]] static Ref<NSAppearance> named(std::string_view name);

  [[nodiscard]] const std::string& name() const { return name_; }

  /// The one of `names` that fits best: the appearance's own, else that of the family it stems from
  /// (aqua for every light form, dark aqua for every dark one), else none. The answer is an element of
  /// `names`.
  [[nodiscard]] std::optional<std::string_view> bestMatch(std::span<const std::string_view> names) const;

  /// Whether it stems from the dark family, as `bestMatch` would tell of the two families.
  [[nodiscard]] bool isDark() const { return family_ == Family::dark; }

  /// The appearance for which drawing code draws: the innermost one that is being performed, outside
  /// any the application's effective one. Main thread only.
  [[nodiscard]] static Ref<NSAppearance> currentDrawing();
  /// Makes this the drawing appearance while `block` runs; calls nest.
  void performAsCurrentDrawingAppearance(const std::function<void()>& block);

  /// Appearances of one name are equal.
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override;

 private:
  template <typename T, typename... Args>
  friend Ref<T> make(Args&&... args);

  explicit NSAppearance(std::string_view name);

  enum class Family { none, light, dark };
  struct Known;
  static const Known known[];
  [[nodiscard]] static const Known* find(std::string_view name);

  const std::string name_;
  const Family family_;
};

}  // namespace bkuk
