#pragma once

#include <optional>
#include <string_view>

#include "host/Text.h"

namespace bkuk::host {

/// What a face that only other systems have would be asked for.
struct FontStandIn {
  std::string_view language{};
  FontWeight weight{};
};

/// Absent for names that belong to no such face.
[[nodiscard]] std::optional<FontStandIn> standInFor(std::string_view postScriptName);

}  // namespace bkuk::host
