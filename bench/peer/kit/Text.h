#pragma once

#include <string_view>

#include "BrenvikUIKit/text/BKUKLabel.h"

namespace bkuk::bench {

/// What all text of the scenes looks like.
[[nodiscard]] const BKUKFontSettings& textStyle();

/// A label for constraints to place.
[[nodiscard]] Ref<BKUKLabel> makeLabel(std::string_view text);

}  // namespace bkuk::bench
