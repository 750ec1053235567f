#pragma once

#include <cstdint>

namespace bkuk {

/// The emphasis of content (text, icons, strokes) drawn upon a surface.
enum class BKUKThemeColorOpacity : std::uint8_t { primary, secondary, disabled, light, extraLight };

}  // namespace bkuk
