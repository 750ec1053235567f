#pragma once

#include <optional>

#include "host/Rgba.h"

namespace bkuk::host {

enum class ColorScheme { unknown, light, dark };

/// What the desktop says about how applications should look. A host caches it, so that reading costs
/// no call to another process, and replaces it when the desktop announces a change.
struct Appearance {
  ColorScheme scheme = ColorScheme::unknown;
  bool highContrast = false;
  bool reducedMotion = false;
  std::optional<Rgba> accent{};  ///< the user's accent colour, where the desktop has one
  bool operator==(const Appearance&) const = default;
};

}  // namespace bkuk::host
