#include "BrenvikUIKit/text/BKUKFontLoader.h"

#include <utility>

#include "BrenvikUIKit/text/BKUKFontConfig.h"
#include "BrenvikUIKit/text/LanguageFonts.h"
#include "platform/coretext/CTFontManager.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

constexpr const char* unit = "BrenvikUIKit/BKUKFontLoader";

}  // namespace

BKUKFontLoader& BKUKFontLoader::shared() {
  static const auto& loader = permanent([] { return make<BKUKFontLoader>(); });
  return *loader;
}

BKUKFontLoader::Identifiers BKUKFontLoader::registerFont(const NSBundle& bundle,
                                                         std::optional<std::string_view> subpath,
                                                         std::optional<std::string_view> ext,
                                                         const Identifiers& identifiersForTypes) {
  for (const auto& path : bundle.paths(ext, subpath)) {
    CTFontManagerRegisterFontsForURL(path, kCTFontManagerScopeProcess);
  }
  return registerFont(identifiersForTypes);
}

BKUKFontLoader::Identifiers BKUKFontLoader::registerFont(const Identifiers& identifiersForTypes) {
  identifiers_ = identifiersForTypes;
  return *identifiers_;
}

BKUKFontLoader::Identifiers BKUKFontLoader::registerLocalizedFonts(const NSBundle& bundle,
                                                                   std::optional<std::string_view> subpath,
                                                                   std::optional<std::string_view> ext,
                                                                   const Identifiers& identifiersForTypes) {
  if (const auto* fonts = currentLanguageFonts()) return registerFont(fonts->identifiers);
  return registerFont(bundle, subpath, ext, identifiersForTypes);
}

void BKUKFontLoader::setLabelLocalizedOffsets(Offset top, Offset bottom) {
  const auto* fonts = currentLanguageFonts();
  auto& config = BKUKFontConfig::shared();
  config.labelTopOffset = fonts ? fonts->labelTop : std::move(top);
  config.labelBottomOffset = fonts ? fonts->labelBottom : std::move(bottom);
}

void BKUKFontLoader::setTextFieldLocalizedOffsets(Offset top, Offset bottom) {
  const auto* fonts = currentLanguageFonts();
  auto& config = BKUKFontConfig::shared();
  config.textFieldTopOffset = fonts ? fonts->textFieldTop : std::move(top);
  config.textFieldBottomOffset = fonts ? fonts->textFieldBottom : std::move(bottom);
}

Ref<NSFont> BKUKFontLoader::loadFont(BKUKFontType type, double size) const {
  if (!identifiers_) {
    fatal(
        "No font set, plese use registerFont(bundle:subpath:ext:identifiersForTypes) to register default "
        "font.",
        unit, 54);
  }
  const auto name = identifiers_->find(type);
  if (name == identifiers_->end()) fatal("Requested font of non existing type", unit, 58);
  const std::string missing = "Font could not be loaded";
  auto font = NSFont::font(name->second, size);
  if (!font) fatal(name->second.empty() ? missing : missing + ": " + name->second, unit, 63);
  return font;
}

}  // namespace bkuk
