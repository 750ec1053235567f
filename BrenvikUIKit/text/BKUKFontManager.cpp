#include "BrenvikUIKit/text/BKUKFontManager.h"

#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/FontKey.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

BKUKFontManager& BKUKFontManager::shared() {
  static const auto& manager = permanent([] { return make<BKUKFontManager>(); });
  return *manager;
}

Ref<NSFont> BKUKFontManager::Font(FontTypes withType, double size) {
  return shared().cachedFont(withType, size);
}

double BKUKFontManager::HeightOfFont(FontTypes withType, double size) {
  return Font(withType, size)->boundingRectForFont().height();
}

NSAttributeDictionary BKUKFontManager::FontAttributes(FontTypes withType, double size,
                                                      const Ref<NSColor>& color, NSTextAlignment alignment,
                                                      std::optional<double> letterSpacing) {
  const auto paragraph = NSParagraphStyle::default_()->mutableCopy();
  paragraph->setAlignment(alignment);
  NSAttributeDictionary attributes = {{NSFontAttributeName, Font(withType, size)},
                                      {NSParagraphStyleAttributeName, paragraph}};
  if (letterSpacing) attributes.set(NSKernAttributeName, *letterSpacing);
  if (color) attributes.set(NSForegroundColorAttributeName, color);
  return attributes;
}

std::size_t BKUKFontManager::cacheSize() { return shared().cache_->count(); }

void BKUKFontManager::clearCache() { shared().cache_->removeAllObjects(); }

Ref<NSFont> BKUKFontManager::cachedFont(FontTypes type, double size) {
  if (static_cast<std::ptrdiff_t>(cache_->count()) > maximumCacheSize_) cache_->removeAllObjects();
  // Sizes that are none are all one, so that none of them fills the cache.
  size = CTFontUsableSize(size, 0);
  const auto key = make<FontKey>(type, size);
  if (const auto found = cache_->object(key.get())) return Ref<NSFont>(static_cast<NSFont*>(found.get()));
  auto font = BKUKFontLoader::shared().loadFont(type, size);
  cache_->set(font.get(), key.get());
  return font;
}

}  // namespace bkuk
