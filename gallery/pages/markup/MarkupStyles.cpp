#include "gallery/pages/markup/MarkupStyles.h"

#include "gallery/cards/LabelText.h"

namespace bkuk::gallery {

namespace {

constexpr double size = 17;

}  // namespace

BKUKFontSettings markupDefaultStyle() { return cardText(size); }

std::map<std::string, BKUKFontSettings> markupStyles() {
  const auto plain = markupDefaultStyle();
  return {
      {"b", plain.with({.type = BKUKFontType::bold})},
      {"i", plain.with({.type = BKUKFontType::light})},
      {"big", plain.with({.size = 28})},
      {"link", plain.with({.color = BKUKTheme::accentHighContrast()})
                   .withUnderline(NSUnderlineStyle::single, nullptr)},
      {"mark", plain.withCustomAttribute(BKUKFontSettings::CustomAttribute(NSBackgroundColorAttributeName,
                                                                           BKUKTheme::highlightAccent()))},
  };
}

}  // namespace bkuk::gallery
