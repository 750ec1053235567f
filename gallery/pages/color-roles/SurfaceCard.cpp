#include "gallery/pages/color-roles/SurfaceCard.h"

#include <algorithm>
#include <cmath>

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"
#include "gallery/chrome/Direction.h"
#include "gallery/pages/color-roles/RoleName.h"

namespace bkuk::gallery {

namespace {

using Opacity = BKUKThemeColorOpacity;
using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 18;
constexpr CGFloat titleHeight = 26;
constexpr CGFloat lineHeight = 22;
constexpr CGFloat dotSize = 12;
constexpr CGFloat dotGap = 10;
constexpr CGFloat swatchGap = 6;
constexpr CGFloat swatchPadding = 10;
constexpr CGFloat widestSwatch = 190;

constexpr Opacity emphases[] = {Opacity::primary, Opacity::secondary, Opacity::light, Opacity::extraLight,
                                Opacity::disabled};

}  // namespace

SurfaceCard::SurfaceCard(BKUKThemeColorBase surface)
    : Box({.fill = role(baseRole(surface)),
           .border = role(onRole(surface, Opacity::extraLight)),
           .cornerRadius = 14}),
      surface_(surface) {}

void SurfaceCard::didInit() {
  Box::didInit();
  describe(*this, NSAccessibilityGroupRole, std::string(roleName(baseRole(surface_))));
  title_ = makeHeading(std::string(roleName(baseRole(surface_))), role(onRole(surface_, Opacity::primary)));
  addSubview(title_);
  for (const Opacity emphasis : emphases) addContentColor(emphasis);
  for (const int steps : {0, 1, 2}) addVariant(steps);
  showValues();
}

void SurfaceCard::addContentColor(Opacity opacity) {
  const Role content = onRole(surface_, opacity);
  const bool isForText = opacity == Opacity::primary || opacity == Opacity::secondary;
  const Role ink = isForText ? content : onRole(surface_, Opacity::secondary);
  contentColors_.push_back({make<Box>(Box::Look{.fill = role(content), .cornerRadius = dotSize / 2}),
                            makeCaption(std::string(roleName(content)), role(ink))});
  addSubview(contentColors_.back().dot);
  addSubview(contentColors_.back().name);
}

void SurfaceCard::addVariant(int steps) {
  // A surface's variants follow it in declaration order, but the accent's, which come after its
  // high-contrast form.
  const bool isAccent = surface_ == BKUKThemeColorBase::accent;
  const Role variant = roleAfter(baseRole(surface_), steps + (isAccent && steps > 0 ? 1 : 0));
  const auto ink = role(onRole(surface_, Opacity::primary));
  const Box::Look look{
      .fill = role(variant), .border = role(onRole(surface_, Opacity::extraLight)), .cornerRadius = 8};
  variants_.push_back(
      {variant, make<Box>(look), makeCaption(std::string(roleName(variant)), ink), makeRemark("", ink)});
  const auto& added = variants_.back();
  added.swatch->addSubview(added.name);
  added.swatch->addSubview(added.value);
  addSubview(added.swatch);
}

void SurfaceCard::showValues() {
  for (const auto& variant : variants_) {
    variant.value->setText(hexText(*BKUKTheme::color(variant.role)));
    describeImage(*variant.swatch, variant.name->text() + ", " + variant.value->text());
  }
}

void SurfaceCard::viewDidChangeEffectiveAppearance() {
  Box::viewDidChangeEffectiveAppearance();
  showValues();
}

void SurfaceCard::layout() {
  const CGFloat width = bounds().width();
  const CGFloat swatchWidth = std::min(widestSwatch, std::floor((width - 3 * padding) / 2));
  layOutContentColors(width - 3 * padding - swatchWidth);
  layOutVariants(swatchWidth);
}

void SurfaceCard::layOutContentColors(CGFloat width) {
  title_->setFrame(fromLeading(*this, {padding, padding - 4, width, titleHeight}));
  CGFloat top = padding + titleHeight + 4;
  for (const auto& color : contentColors_) {
    const CGFloat dotTop = top + (lineHeight - dotSize) / 2;
    color.dot->setFrame(fromLeading(*this, {padding, dotTop, dotSize, dotSize}));
    const CGFloat start = padding + dotSize + dotGap;
    color.name->setFrame(fromLeading(*this, {start, top, width - dotSize - dotGap, lineHeight}));
    top += lineHeight;
  }
}

void SurfaceCard::layOutVariants(CGFloat width) {
  const CGFloat swatchHeight = std::floor((bounds().height() - 2 * padding - 2 * swatchGap) / 3);
  const CGFloat inner = width - 2 * swatchPadding;
  CGFloat top = padding;
  for (const auto& variant : variants_) {
    const CGFloat start = bounds().width() - padding - width;
    variant.swatch->setFrame(fromLeading(*this, {start, top, width, swatchHeight}));
    variant.name->setFrame({swatchPadding, 5, inner, 19});
    variant.value->setFrame({swatchPadding, 23, inner, 17});
    top += swatchHeight + swatchGap;
  }
}

}  // namespace bkuk::gallery
