#include "bench/peer/kit/Text.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "bench/peer/common/Scene.h"

namespace bkuk::bench {

const BKUKFontSettings& textStyle() {
  static const auto& style = *new BKUKFontSettings(BKUKTheme::onBackground(), peer::fontSize,
                                                   BKUKFontType::regular, NSTextAlignment::natural);
  return style;
}

Ref<BKUKLabel> makeLabel(std::string_view text) {
  auto label = BKUKLabel::label(text, textStyle());
  label->setTranslatesAutoresizingMaskIntoConstraints(false);
  return label;
}

}  // namespace bkuk::bench
