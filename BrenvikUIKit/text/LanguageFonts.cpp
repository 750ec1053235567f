#include "BrenvikUIKit/text/LanguageFonts.h"

#include "BrenvikUIKit/text/BKUKCurrentLanguageIdentifier.h"

namespace bkuk {

namespace {

using Type = BKUKFontType;

/// `perPoint` of the font's size and a constant.
BKUKFontLoader::Offset offset(double perPoint, double constant) {
  return [=](const NSFont& font) { return font.pointSize() * perPoint + constant; };
}

BKUKFontLoader::Offset none() { return offset(0, 0); }

// The divisions are those of the documented formulas, to the last bit.
BKUKFontLoader::Offset fraction(double divisor, double constant) {
  return [=](const NSFont& font) { return font.pointSize() / divisor + constant; };
}

const std::map<std::string, LanguageFonts, std::less<>>& languages() {
  static const auto& table = *new std::map<std::string, LanguageFonts, std::less<>>{
      {"ja",
       {{{Type::thin, "HiraginoSans-W1"},
         {Type::light, "HiraginoSans-W2"},
         {Type::regular, "HiraginoSans-W4"},
         {Type::bold, "HiraginoSans-W6"}},
        offset(0, 1),
        fraction(-4.5, -1),
        none(),
        none()}},
      {"zh",
       {{{Type::thin, "PingFangSC-Thin"},
         {Type::light, "PingFangSC-Light"},
         {Type::regular, "PingFangSC-Regular"},
         {Type::bold, "PingFangSC-Medium"}},
        none(),
        fraction(-3.5, 0),
        none(),
        offset(0.25, 0)}},
      {"ko",
       {{{Type::thin, "AppleSDGothicNeo-Thin"},
         {Type::light, "AppleSDGothicNeo-Light"},
         {Type::regular, "AppleSDGothicNeo-Regular"},
         {Type::bold, "AppleSDGothicNeo-Bold"}},
        none(),
        fraction(-3, -2),
        none(),
        none()}},
  };
  return table;
}

}  // namespace

const LanguageFonts* currentLanguageFonts() {
  const auto language = BKUKCurrentLanguageIdentifier().language;
  if (!language) return nullptr;
  const auto found = languages().find(*language);
  return found == languages().end() ? nullptr : &found->second;
}

}  // namespace bkuk
