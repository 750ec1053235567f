#pragma once

#include <functional>

#include "platform/appkit/text/NSFont.h"

namespace bkuk {

/// How far components move their text up or down in a font, in points. One for the process; the application
/// sets it through `BKUKFontLoader`, which knows what the user's language needs, or in place.
class BKUKFontConfig {
 public:
  using Offset = std::function<double(const NSFont& font)>;

  [[nodiscard]] static BKUKFontConfig& shared();

  Offset labelBottomOffset = noOffset;
  Offset labelTopOffset = noOffset;
  Offset textFieldBottomOffset = noOffset;
  Offset textFieldTopOffset = noOffset;

 private:
  BKUKFontConfig() = default;
  static double noOffset(const NSFont&) { return 0; }
};

}  // namespace bkuk
