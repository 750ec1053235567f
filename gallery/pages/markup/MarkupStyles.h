#pragma once

#include <map>
#include <string>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// What the page of markup shows text in that is in no tag.
[[nodiscard]] BKUKFontSettings markupDefaultStyle();

/// The styles of the tags that the page knows, by their names.
[[nodiscard]] std::map<std::string, BKUKFontSettings> markupStyles();

}  // namespace bkuk::gallery
