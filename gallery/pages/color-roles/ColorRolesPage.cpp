#include "gallery/pages/color-roles/ColorRolesPage.h"

#include <algorithm>

#include "gallery/cards/Grid.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Base = BKUKThemeColorBase;
using Role = BKUKThemeColorRole;

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat gap = 18;

constexpr Base surfaces[] = {Base::background, Base::surface, Base::main,    Base::desktopMenu,
                             Base::accent,     Base::brand,   Base::premium, Base::success,
                             Base::attention,  Base::critical};
constexpr Role singles[] = {Role::accentHighContrast, Role::desktopIpmBanner,  Role::highlightAccent,
                            Role::highlightPositive,  Role::highlightNegative, Role::highlightNeutral};

Grid cardGrid(CGFloat pageWidth) {
  return {.width = pageWidth - 2 * margin,
          .narrowest = 400,
          .cellHeight = SurfaceCard::height,
          .gap = gap,
          .maxColumns = 3};
}

Grid singleGrid(CGFloat pageWidth) {
  return {.width = pageWidth - 2 * margin,
          .narrowest = 132,
          .cellHeight = SingleColorSwatch::height,
          .gap = gap,
          .maxColumns = 6};
}

}  // namespace

void ColorRolesPage::didInit() {
  GalleryPage::didInit();
  for (const Base surface : surfaces) {
    cards_.push_back(make<SurfaceCard>(surface));
    addSubview(cards_.back());
  }
  for (const Role single : singles) {
    singles_.push_back(make<SingleColorSwatch>(single));
    addSubview(singles_.back());
  }
}

CGFloat ColorRolesPage::heightForWidth(CGFloat width) const {
  return topMargin + cardGrid(width).heightOf(cards_.size()) + gap +
         singleGrid(width).heightOf(singles_.size()) + margin;
}

void ColorRolesPage::layout() {
  const CGFloat width = bounds().width();
  const Grid cards = cardGrid(width);
  for (std::size_t i = 0; i < cards_.size(); ++i) {
    cards_[i]->setFrame(fromLeading(*this, cards.cell(i).offsetBy(margin, topMargin)));
  }
  const Grid swatches = singleGrid(width);
  const CGFloat top = topMargin + cards.heightOf(cards_.size()) + gap;
  for (std::size_t i = 0; i < singles_.size(); ++i) {
    singles_[i]->setFrame(fromLeading(*this, swatches.cell(i).offsetBy(margin, top)));
  }
}

}  // namespace bkuk::gallery
