#pragma once

#include <cstdint>
#include <optional>

namespace bkuk {

/// The weight in which text is asked for. Which face that is says the application, once for all.
/// Components write `BKUKFontManager::FontTypes`.
enum class BKUKFontType : std::uint8_t { light = 0, regular = 1, bold = 2, thin = 3 };

/// Absent for a number that is no type's.
[[nodiscard]] constexpr std::optional<BKUKFontType> fontType(int rawValue) {
  if (rawValue < 0 || rawValue > 3) return std::nullopt;
  return static_cast<BKUKFontType>(rawValue);
}

}  // namespace bkuk
