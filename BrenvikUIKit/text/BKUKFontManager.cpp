#include "BrenvikUIKit/text/BKUKFontManager.h"

#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/FontKey.h"

namespace bkuk {

BKUKFontManager& BKUKFontManager::shared() {
  static const auto& manager = *new Ref<BKUKFontManager>(make<BKUKFontManager>());
  return *manager;
}

Ref<NSFont> BKUKFontManager::Font(FontTypes withType, double size) {
  return shared().cachedFont(withType, size);
}

double BKUKFontManager::HeightOfFont(FontTypes withType, double size) {
  return Font(withType, size)->boundingRectForFont().height();
}

std::size_t BKUKFontManager::cacheSize() { return shared().cache_->count(); }

void BKUKFontManager::clearCache() { shared().cache_->removeAllObjects(); }

Ref<NSFont> BKUKFontManager::cachedFont(FontTypes type, double size) {
  if (static_cast<std::ptrdiff_t>(cache_->count()) > maximumCacheSize_) cache_->removeAllObjects();
  const auto key = make<FontKey>(type, size);
  if (const auto found = cache_->object(key.get())) return Ref<NSFont>(static_cast<NSFont*>(found.get()));
  auto font = BKUKFontLoader::shared().loadFont(type, size);
  cache_->set(font.get(), key.get());
  return font;
}

}  // namespace bkuk
