#pragma once

namespace bkuk {

/// Whether the system version is one that has a dark appearance, 10.14 or later.
[[nodiscard]] bool systemKnowsDarkAppearance();

}  // namespace bkuk
