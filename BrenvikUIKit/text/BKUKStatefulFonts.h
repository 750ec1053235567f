#pragma once

#include "BrenvikUIKit/style/BKUKStatefulColors.h"
#include "BrenvikUIKit/text/BKUKFontSettings.h"

namespace bkuk {

/// What text looks like by interaction state.
using BKUKStatefulFonts = BKUKStatefulSettings<BKUKFontSettings>;

template <>
class BKUKStatefulPresets<BKUKFontSettings> : public BKUKStatefulPresetsBase {
 public:
  /// A link in the accent colour, which loses it under the pointer. In the theme's colours of the moment.
  [[nodiscard]] static BKUKStatefulFonts hyperlinkPrimary();
  /// A link in the colour of text, which takes the accent colour under the pointer. In the theme's colours
  /// of the moment.
  [[nodiscard]] static BKUKStatefulFonts hyperlinkSecondary();

  /// Text in each state's colour and otherwise alike: `size` and `spacing` are in points. All four states
  /// have their own.
  [[nodiscard]] static BKUKStatefulFonts make(const BKUKStatefulColors& colors, double size,
                                              BKUKFontType type, NSTextAlignment alignment,
                                              std::optional<float> spacing = {});
  /// The same in the size and type that the application gives the role.
  [[nodiscard]] static BKUKStatefulFonts make(BKUKBrandFont style, const BKUKStatefulColors& colors,
                                              NSTextAlignment alignment);

  /// Each state's text in its colour of `colors` and changed as `changes` says, whose own colour does not
  /// count.
  [[nodiscard]] BKUKStatefulFonts with(const BKUKStatefulColors& colors,
                                       const BKUKFontChanges& changes) const;
};

}  // namespace bkuk
