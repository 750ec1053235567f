#include "gallery/brand/BrandTypography.h"

#include <algorithm>
#include <optional>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

namespace {

using Type = BKUKFontType;
using Identifiers = BKUKFontLoader::Identifiers;

Identifiers inter() {
  return {{Type::thin, "Inter-Thin"},
          {Type::light, "Inter-Light"},
          {Type::regular, "Inter-Regular"},
          {Type::bold, "Inter-Bold"}};
}

// The one light face, which is not in the basic package, stands for both light types.
Identifiers dejaVu() {
  const auto* light = NSFont::font("DejaVuSans-ExtraLight", 0) ? "DejaVuSans-ExtraLight" : "DejaVuSans";
  return {{Type::thin, light},
          {Type::light, light},
          {Type::regular, "DejaVuSans"},
          {Type::bold, "DejaVuSans-Bold"}};
}

Identifiers desktopFace() {
  const auto usual = NSFont::systemFont(0);
  const auto face = [&](NSFontWeight weight) {
    const auto font = NSFont::fontInFamily(usual->familyName(), weight, 0);
    return (font ? font : usual)->fontName();
  };
  return {
      {Type::thin, face(200)}, {Type::light, face(300)}, {Type::regular, face(400)}, {Type::bold, face(700)}};
}

/// False when one of the faces is not there. Files among the program's resources go before installed faces.
bool registerFamily(const Identifiers& faces) {
  const auto registered =
      BKUKFontLoader::shared().registerLocalizedFonts(NSBundle::main(), "fonts", std::nullopt, faces);
  return std::ranges::all_of(registered,
                             [](const auto& face) { return NSFont::font(face.second, 0) != nullptr; });
}

double sizeOf(BKUKBrandFont style) {
  switch (style) {
    case BKUKBrandFont::h1:
      return 40;
    case BKUKBrandFont::h2:
      return 32;
    case BKUKBrandFont::h3:
      return 26;
    case BKUKBrandFont::h4:
      return 21;
    case BKUKBrandFont::h5:
      return 18;
    case BKUKBrandFont::h6:
    case BKUKBrandFont::body1:
      return 16;
    case BKUKBrandFont::body2:
    case BKUKBrandFont::button:
      return 14;
    case BKUKBrandFont::buttonSmall:
    case BKUKBrandFont::caption:
      break;
  }
  return 12;
}

// What is large may be light.
BKUKFontType typeOf(BKUKBrandFont style) {
  switch (style) {
    case BKUKBrandFont::h1:
    case BKUKBrandFont::h2:
      return Type::light;
    case BKUKBrandFont::h4:
    case BKUKBrandFont::h5:
    case BKUKBrandFont::h6:
    case BKUKBrandFont::button:
    case BKUKBrandFont::buttonSmall:
      return Type::bold;
    default:
      return Type::regular;
  }
}

}  // namespace

void registerBrandFonts() {
  auto& loader = BKUKFontLoader::shared();
  if (!registerFamily(inter()) && !registerFamily(dejaVu())) loader.registerFont(desktopFace());
  BKUKBrandFont::size = sizeOf;
  BKUKBrandFont::type = typeOf;
  // The brand's faces need no help to lie in the middle.
  const auto none = [](const NSFont&) { return 0.0; };
  loader.setLabelLocalizedOffsets(none, none);
  loader.setTextFieldLocalizedOffsets(none, none);
}

}  // namespace bkuk::gallery
