#pragma once

#include <QtGui/QFont>
#include <optional>
#include <string_view>

#include "host/Text.h"

namespace bkuk::host {

/// The best installed family for a language, in the weight nearest to `weight`: one made for just that
/// language if there is one, else one that covers its script. Absent when none does, or the system's own face
/// is as good.
[[nodiscard]] std::optional<QFont> fontForLanguage(std::string_view language, FontWeight weight);

}  // namespace bkuk::host
