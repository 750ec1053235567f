#include "BrenvikUIKit/text/BKUKFontSettings.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "platform/appkit/text/NSParagraphStyle.h"

namespace bkuk {

namespace {

BKUKFontSettings roleText(BKUKBrandFont style) {
  return {style, BKUKThemeColorBase::background, NSTextAlignment::center, BKUKThemeColorOpacity::primary};
}

BKUKFontSettings linkText(double size) {
  return BKUKFontSettings(BKUKTheme::onBackground(), size, BKUKFontType::regular, NSTextAlignment::natural)
      .withUnderline(NSUnderlineStyle::single, nullptr);
}

}  // namespace

BKUKFontSettings::BKUKFontSettings()
    : BKUKFontSettings(NSColor::black(), 12, BKUKFontType::regular, NSTextAlignment::natural) {}

BKUKFontSettings::BKUKFontSettings(Ref<NSColor> textColor, double pointSize,
                                   BKUKFontManager::FontTypes fontType, NSTextAlignment textAlignment,
                                   std::optional<NSLineBreakMode> breakMode,
                                   std::optional<float> letterSpacing,
                                   std::optional<NSUnderlineStyle> lineStyle, Ref<NSColor> lineColor,
                                   std::optional<CustomAttribute> custom)
    : color(std::move(textColor)),
      alignment(textAlignment),
      lineBreakMode(breakMode),
      size(pointSize),
      spacing(letterSpacing),
      underline(lineStyle),
      underlineColor(std::move(lineColor)),
      type(fontType),
      customAttribute(std::move(custom)) {}

// Braces ask the application in the order in which it is written down: for the size first.
BKUKFontSettings::BKUKFontSettings(BKUKBrandFont style, Ref<NSColor> textColor, NSTextAlignment textAlignment)
    : BKUKFontSettings{std::move(textColor), style.askSize(), style.askType(), textAlignment} {}

BKUKFontSettings::BKUKFontSettings(BKUKBrandFont style, BKUKThemeColorBase background,
                                   NSTextAlignment textAlignment, BKUKThemeColorOpacity transparency)
    : BKUKFontSettings(style, BKUKTheme::on(background, transparency), textAlignment) {}

BKUKFontSettings BKUKFontSettings::h1() { return roleText(BKUKBrandFont::h1); }
BKUKFontSettings BKUKFontSettings::h2() { return roleText(BKUKBrandFont::h2); }
BKUKFontSettings BKUKFontSettings::h3() { return roleText(BKUKBrandFont::h3); }
BKUKFontSettings BKUKFontSettings::h4() { return roleText(BKUKBrandFont::h4); }
BKUKFontSettings BKUKFontSettings::h5() { return roleText(BKUKBrandFont::h5); }
BKUKFontSettings BKUKFontSettings::h6() { return roleText(BKUKBrandFont::h6); }
BKUKFontSettings BKUKFontSettings::body1() { return roleText(BKUKBrandFont::body1); }
BKUKFontSettings BKUKFontSettings::body2() { return roleText(BKUKBrandFont::body2); }
BKUKFontSettings BKUKFontSettings::button() { return roleText(BKUKBrandFont::button); }
BKUKFontSettings BKUKFontSettings::buttonSmall() { return roleText(BKUKBrandFont::buttonSmall); }
BKUKFontSettings BKUKFontSettings::caption() { return roleText(BKUKBrandFont::caption); }

BKUKFontSettings BKUKFontSettings::linkBody1() { return linkText(16); }
BKUKFontSettings BKUKFontSettings::linkBody2() { return linkText(14); }
BKUKFontSettings BKUKFontSettings::linkCaption() { return linkText(12); }

Ref<NSFont> BKUKFontSettings::font(std::optional<double> withSize) const {
  return BKUKFontManager::Font(type, withSize.value_or(size));
}

NSAttributeDictionary BKUKFontSettings::fontAttributes(std::optional<NSLineBreakMode>) const {
  const auto paragraph = make<NSMutableParagraphStyle>();
  paragraph->setAlignment(alignment);
  NSAttributeDictionary attributes = {{NSForegroundColorAttributeName, color},
                                      {NSFontAttributeName, font()},
                                      {NSParagraphStyleAttributeName, paragraph}};
  if (spacing) attributes.set(NSKernAttributeName, *spacing);
  if (underline) attributes.set(NSUnderlineStyleAttributeName, *underline);
  if (underlineColor) attributes.set(NSUnderlineColorAttributeName, underlineColor);
  if (customAttribute) attributes.set(customAttribute->first, customAttribute->second);
  return attributes;
}

BKUKFontSettings BKUKFontSettings::with(const Changes& changes) const {
  return {changes.color ? changes.color : color,
          changes.size.value_or(size),
          changes.type.value_or(type),
          changes.alignment.value_or(alignment),
          {},
          changes.spacing ? changes.spacing : spacing,
          underline,
          underlineColor,
          customAttribute};
}

BKUKFontSettings BKUKFontSettings::withUnderline(std::optional<NSUnderlineStyle> style,
                                                 Ref<NSColor> lineColor) const {
  auto changed = with({});
  changed.underline = style;
  changed.underlineColor = std::move(lineColor);
  return changed;
}

BKUKFontSettings BKUKFontSettings::withBackgroundColor(const Ref<NSColor>&) const {
  return withUnderline(underline, color);
}

BKUKFontSettings BKUKFontSettings::withCustomAttribute(std::optional<CustomAttribute> attribute) const {
  auto changed = withUnderline(underline, color);
  changed.customAttribute = std::move(attribute);
  return changed;
}

}  // namespace bkuk
