#include "gallery/GalleryPage.h"
#include "gallery/pages/animation/AnimationPage.h"
#include "gallery/pages/color-roles/ColorRolesPage.h"
#include "gallery/pages/fills/FillsPage.h"
#include "gallery/pages/fonts/FontsPage.h"
#include "gallery/pages/keyboard/KeyboardPage.h"
#include "gallery/pages/label/LabelPage.h"
#include "gallery/pages/languages/LanguagesPage.h"
#include "gallery/pages/layout/LayoutPage.h"
#include "gallery/pages/markup/MarkupPage.h"
#include "gallery/pages/shapes/ShapesPage.h"
#include "gallery/pages/states/StatesPage.h"
#include "gallery/pages/trigger/TriggerPage.h"

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
