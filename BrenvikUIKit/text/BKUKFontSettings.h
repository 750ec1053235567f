#pragma once

#include <optional>
#include <utility>

#include "BrenvikUIKit/colour/BKUKThemeColorBase.h"
#include "BrenvikUIKit/colour/BKUKThemeColorOpacity.h"
#include "BrenvikUIKit/text/BKUKBrandFont.h"
#include "BrenvikUIKit/text/BKUKFontManager.h"
#include "platform/appkit/text/NSUnderlineStyle.h"

namespace bkuk {

/// The arguments of `BKUKFontSettings::with`: what is absent stays as it is.
struct BKUKFontChanges {
  Ref<NSColor> color{};
  std::optional<double> size{};
  std::optional<BKUKFontType> type{};
  std::optional<NSTextAlignment> alignment{};
  std::optional<float> spacing{};
};

/// What a run of text looks like. A value; a themed colour in it resolves when the text is painted.
struct BKUKFontSettings {
  using Changes = BKUKFontChanges;
  using CustomAttribute = std::pair<NSAttributedStringKey, NSAttributeValue>;

  Ref<NSColor> color;  ///< never empty
  NSTextAlignment alignment;
  std::optional<NSLineBreakMode> lineBreakMode;  ///< for whoever lays the text out; no attribute says it
  double size;                                   ///< points
  std::optional<float> spacing;                  ///< points after each letter
  std::optional<NSUnderlineStyle> underline;
  Ref<NSColor> underlineColor;  ///< may be empty
  BKUKFontManager::FontTypes type;
  std::optional<CustomAttribute> customAttribute;

  /// Black text of 12 points in the regular type, so that settings can be filled in, or set in a map.
  BKUKFontSettings();
  BKUKFontSettings(Ref<NSColor> textColor, double pointSize, BKUKFontManager::FontTypes fontType,
                   NSTextAlignment textAlignment, std::optional<NSLineBreakMode> breakMode = {},
                   std::optional<float> letterSpacing = {}, std::optional<NSUnderlineStyle> lineStyle = {},
                   Ref<NSColor> lineColor = nullptr, std::optional<CustomAttribute> custom = {});
  /// In the size and type that the application gives the role: it is asked for the size first, and stops the
  /// process before it has said so.
  BKUKFontSettings(BKUKBrandFont style, Ref<NSColor> textColor, NSTextAlignment textAlignment);
  /// The same in the theme's present colour for text upon `background`.
  BKUKFontSettings(BKUKBrandFont style, BKUKThemeColorBase background, NSTextAlignment textAlignment,
                   BKUKThemeColorOpacity transparency);

  // Centred text of each role, upon the background of a window. Made afresh by each call from what the
  // application and the theme say then.
  [[nodiscard]] static BKUKFontSettings h1();
  [[nodiscard]] static BKUKFontSettings h2();
  [[nodiscard]] static BKUKFontSettings h3();
  [[nodiscard]] static BKUKFontSettings h4();
  [[nodiscard]] static BKUKFontSettings h5();
  [[nodiscard]] static BKUKFontSettings h6();
  [[nodiscard]] static BKUKFontSettings body1();
  [[nodiscard]] static BKUKFontSettings body2();
  [[nodiscard]] static BKUKFontSettings button();
  [[nodiscard]] static BKUKFontSettings buttonSmall();
  [[nodiscard]] static BKUKFontSettings caption();

  // Underlined text upon the background of a window, of 16, 14 and 12 points whatever the roles are.
  [[nodiscard]] static BKUKFontSettings linkBody1();
  [[nodiscard]] static BKUKFontSettings linkBody2();
  [[nodiscard]] static BKUKFontSettings linkCaption();

  /// In another size, in points, when one is given. Stops the process when there is no such font.
  [[nodiscard]] Ref<NSFont> font(std::optional<double> withSize = {}) const;

  /// As the platform wants it. A custom attribute takes the place of one that the settings make themselves.
  /// The argument has no effect: how lines break is up to whoever lays the text out.
  [[nodiscard]] NSAttributeDictionary fontAttributes(std::optional<NSLineBreakMode> with = {}) const;

  // Copies. None of them keeps the line break mode.

  /// Leaves underline, underline colour and custom attribute as they are.
  [[nodiscard]] BKUKFontSettings with(const Changes& changes) const;
  /// What is absent is cleared.
  [[nodiscard]] BKUKFontSettings withUnderline(std::optional<NSUnderlineStyle> style,
                                               Ref<NSColor> lineColor) const;
  /// Does not set a background: the argument has no effect, and the text's own colour becomes that of the
  /// underline.
  [[nodiscard]] BKUKFontSettings withBackgroundColor(const Ref<NSColor>& backgroundColor) const;
  /// Also makes the text's own colour that of the underline. Absent clears the attribute.
  [[nodiscard]] BKUKFontSettings withCustomAttribute(std::optional<CustomAttribute> attribute) const;

  /// Colours are equal when they are the same object.
  bool operator==(const BKUKFontSettings&) const = default;
};

}  // namespace bkuk
