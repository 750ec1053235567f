#pragma once

#include "gallery/chrome/Palette.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// The line above a group of things on a page.
[[nodiscard]] inline Ref<TextLabel> makeHeading(std::string text) {
  return make<TextLabel>(
      std::move(text),
      TextLabel::Style{
          .size = 12.5, .weight = 600, .color = role(BKUKThemeColorRole::onBackgroundSecondary)});
}

}  // namespace bkuk::gallery
