#pragma once

#include <optional>
#include <vector>

#include "platform/appkit/drawing/NSColor.h"
#include "platform/coregraphics/CGGradient.h"

namespace bkuk {

/// The colours of a gradient and where on the way from 0 to 1 they lie.
struct BKUKGradient {
  std::vector<Ref<NSColor>> colors{};
  std::optional<std::vector<CGFloat>> locations{};  ///< one for each colour; absent spreads them evenly

  /// What the colours are at this moment.
  [[nodiscard]] std::vector<Ref<CGColor>> cgColors() const;
  /// The gradient of this moment in the device's RGB space; absent without colours.
  [[nodiscard]] Ref<CGGradient> cg() const;

  bool operator==(const BKUKGradient& other) const;
};

}  // namespace bkuk
