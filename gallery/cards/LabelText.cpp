#include "gallery/cards/LabelText.h"

#include <cmath>
#include <cstdio>

#include "platform/foundation/CGRoundedUp.h"

namespace bkuk::gallery {

BKUKFontSettings cardText(double size, BKUKFontType type) {
  return {BKUKTheme::onSurface(), size, type, NSTextAlignment::natural};
}

std::string_view nameOf(BKUKFontType type) {
  constexpr std::string_view names[] = {"light", "regular", "bold", "thin"};
  return names[static_cast<std::size_t>(type)];
}

std::string pointsText(double points) {
  char number[32];
  const double tenths = std::round(std::abs(points) * 10) / 10;
  std::snprintf(number, sizeof number, "%g pt", tenths);
  return (points < 0 ? "\u2212" : "") + std::string(number);
}

Ref<BKUKLabel> makeTightLabel(std::string_view text, const BKUKFontSettings& style) {
  auto label = BKUKLabel::label(text, style);
  const auto none = [](const NSFont&) { return 0.0; };
  label->setTopTextPadding(none);
  label->setBottomTextPadding(none);
  return label;
}

CGFloat heightOfText(const BKUKLabel& label, CGFloat width) {
  const auto text = label.builder()->build();
  return CGRoundedUp(text->boundingRect({width, 0}, NSStringDrawingOptions::usesLineFragmentOrigin).height());
}

}  // namespace bkuk::gallery
