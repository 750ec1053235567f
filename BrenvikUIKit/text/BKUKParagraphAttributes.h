#pragma once

#include <optional>

#include "platform/appkit/text/NSTextAlignment.h"

namespace bkuk {

/// What a label's text says of its paragraphs; absent for what the platform's default says.
struct BKUKParagraphAttributes {
  std::optional<double> lineHeight{};  ///< points at least for each line
  std::optional<NSTextAlignment> alignment{};
  std::optional<NSLineBreakMode> lineBreakMode{};
  std::optional<bool> defaultTightening{};   ///< whether letters may move together before truncation
  std::optional<double> tighteningFactor{};  ///< by how much

  bool operator==(const BKUKParagraphAttributes&) const = default;
};

}  // namespace bkuk
