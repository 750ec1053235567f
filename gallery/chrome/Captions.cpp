#include "gallery/chrome/Captions.h"

#include <utility>

namespace bkuk::gallery {

Ref<TextLabel> makeHeading(std::string text, Color color) {
  auto heading = make<TextLabel>(std::move(text),
                                 TextLabel::Style{.size = 13.5, .weight = 600, .color = std::move(color)});
  heading->setAccessibilityRole(NSAccessibilityHeadingRole);
  return heading;
}

Ref<TextLabel> makeCaption(std::string text, Color color, TextLabel::Alignment alignment) {
  return make<TextLabel>(
      std::move(text),
      TextLabel::Style{.size = 12.5, .weight = 500, .color = std::move(color), .alignment = alignment});
}

Ref<TextLabel> makeRemark(std::string text, Color color) {
  return make<TextLabel>(std::move(text), TextLabel::Style{.size = 11.5, .color = std::move(color)});
}

}  // namespace bkuk::gallery
