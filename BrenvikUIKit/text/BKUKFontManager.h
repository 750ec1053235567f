#pragma once

#include <cstddef>
#include <optional>

#include "BrenvikUIKit/text/BKUKFontType.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/foundation/NSAttributeDictionary.h"
#include "platform/foundation/NSMapTable.h"

namespace bkuk {

/// Where every font of the kit comes from: asked for by type and size, never by family. Fonts are remembered
/// by both, so the same question is answered by the same object while it is remembered. Main thread only.
class BKUKFontManager final : public NSObject {
 public:
  using FontTypes = BKUKFontType;

  [[nodiscard]] static BKUKFontManager& shared();

  /// `size` in points; 0, and as that negative and not finite ones, for 12. Stops the process when there is
  /// no such font: see `BKUKFontLoader::loadFont`.
  [[nodiscard]] static Ref<NSFont> Font(FontTypes withType, double size);
  /// The height of the box around all glyphs of the font, in points.
  [[nodiscard]] static double HeightOfFont(FontTypes withType, double size);
  /// What text in that font looks like. `color` may be empty and `letterSpacing`, in points, absent: then the
  /// text says nothing of them. A paragraph style is always in it.
  [[nodiscard]] static NSAttributeDictionary FontAttributes(FontTypes withType, double size,
                                                            const Ref<NSColor>& color,
                                                            NSTextAlignment alignment,
                                                            std::optional<double> letterSpacing = {});
  /// How many fonts are remembered.
  [[nodiscard]] static std::size_t cacheSize();
  static void clearCache();

  /// A question that finds more fonts remembered than this forgets all of them first. 25 unless set.
  [[nodiscard]] int maximumCacheSize() const { return maximumCacheSize_; }
  void setMaximumCacheSize(int size) { maximumCacheSize_ = size; }

  /// Fonts by `FontKey`.
  [[nodiscard]] NSMapTable& cache() const { return *cache_; }

 private:
  [[nodiscard]] Ref<NSFont> cachedFont(FontTypes type, double size);

  int maximumCacheSize_ = 25;
  Ref<NSMapTable> cache_ = make<NSMapTable>();
};

}  // namespace bkuk
