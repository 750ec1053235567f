#pragma once

#include <optional>
#include <utility>

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/appkit/text/NSUnderlineStyle.h"
#include "platform/foundation/NSAttributeDictionary.h"

namespace bkuk {

/// What a label's text looks like. Every field may be absent, and is at first.
struct BKUKTextAttributes {
  Ref<NSFont> font{};
  std::optional<NSUnderlineStyle> underline{};
  std::optional<double> letterSpacing{};  ///< points after each letter
  Ref<NSColor> textColor{};
  Ref<NSColor> underlineColor{};  ///< the text's colour when absent
  std::optional<std::pair<NSAttributedStringKey, NSAttributeValue>> customAttribute{};
  std::optional<double> lineHeight{};  ///< points at least for each line
  std::optional<NSTextAlignment> alignment{};
  std::optional<NSLineBreakMode> lineBreakMode{};
  std::optional<bool> defaultTightening{};   ///< whether letters may move together before truncation
  std::optional<double> tighteningFactor{};  ///< by how much

  /// As the platform wants it. A paragraph style is always in it.
  [[nodiscard]] NSAttributeDictionary makeStringAttributes() const;
};

}  // namespace bkuk
