#include "gallery/GalleryPage.h"
#include "gallery/pages/AnimationPage.h"
#include "gallery/pages/ColorRolesPage.h"
#include "gallery/pages/FillsPage.h"
#include "gallery/pages/FontsPage.h"
#include "gallery/pages/KeyboardPage.h"
#include "gallery/pages/LabelPage.h"
#include "gallery/pages/LanguagesPage.h"
#include "gallery/pages/LayoutPage.h"
#include "gallery/pages/MarkupPage.h"
#include "gallery/pages/ShapesPage.h"
#include "gallery/pages/StatesPage.h"
#include "gallery/pages/TriggerPage.h"

namespace bkuk::gallery {

namespace {

template <typename Page>
Ref<GalleryPage> makePageOf() {
  return make<Page>();
}

}  // namespace

std::span<const GalleryPageEntry> galleryPages() {
  static constexpr GalleryPageEntry pages[] = {
      {"Colour roles", "colour-roles", makePageOf<ColorRolesPage>},
      {"Shapes", "shapes", makePageOf<ShapesPage>},
      {"Fills and shadows", "fills", makePageOf<FillsPage>},
      {"Animation", "animation", makePageOf<AnimationPage>},
      {"States", "states", makePageOf<StatesPage>},
      {"Keyboard", "keyboard", makePageOf<KeyboardPage>},
      {"Trigger", "trigger", makePageOf<TriggerPage>},
      {"Layout", "layout", makePageOf<LayoutPage>},
      {"Fonts", "fonts", makePageOf<FontsPage>},
      {"Markup", "markup", makePageOf<MarkupPage>},
      {"Label", "label", makePageOf<LabelPage>},
      {"Languages", "languages", makePageOf<LanguagesPage>},
  };
  return pages;
}

}  // namespace bkuk::gallery
