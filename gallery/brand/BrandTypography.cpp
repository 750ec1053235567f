#include "gallery/brand/BrandTypography.h"

#include <algorithm>
#include <string_view>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

namespace {

using Type = BKUKFontType;
using Identifiers = BKUKFontLoader::Identifiers;

/// A family and where its package puts the files.
struct Family {
  std::string_view resourcePath;
  std::string_view directory;
  std::string_view extension;
  Identifiers faces;
};

Family inter() {
  return {"/usr/share/fonts/opentype",
          "inter",
          "otf",
          {{Type::thin, "Inter-Thin"},
           {Type::light, "Inter-Light"},
           {Type::regular, "Inter-Regular"},
           {Type::bold, "Inter-Bold"}}};
}

// The one light face, which is not in the basic package, stands for both light types.
Family dejaVu() {
  const auto* light = NSFont::font("DejaVuSans-ExtraLight", 0) ? "DejaVuSans-ExtraLight" : "DejaVuSans";
  return {"/usr/share/fonts/truetype",
          "dejavu",
          "ttf",
          {{Type::thin, light},
           {Type::light, light},
           {Type::regular, "DejaVuSans"},
           {Type::bold, "DejaVuSans-Bold"}}};
}

Identifiers desktopFace() {
  const auto name = NSFont::systemFont(0)->fontName();
  return {{Type::thin, name}, {Type::light, name}, {Type::regular, name}, {Type::bold, name}};
}

bool isComplete(const Identifiers& faces) {
  return std::ranges::all_of(faces, [](const auto& face) { return NSFont::font(face.second, 0) != nullptr; });
}

void registerFamily() {
  auto& loader = BKUKFontLoader::shared();
  for (const auto& family : {inter(), dejaVu()}) {
    const auto& bundle = NSBundle::bundle(family.resourcePath);
    if (isComplete(loader.registerLocalizedFonts(bundle, family.directory, family.extension, family.faces)))
      return;
  }
  loader.registerFont(desktopFace());
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
  registerFamily();
  BKUKBrandFont::size = sizeOf;
  BKUKBrandFont::type = typeOf;
  // The brand's faces need no help to lie in the middle.
  const auto none = [](const NSFont&) { return 0.0; };
  auto& loader = BKUKFontLoader::shared();
  loader.setLabelLocalizedOffsets(none, none);
  loader.setTextFieldLocalizedOffsets(none, none);
}

}  // namespace bkuk::gallery
