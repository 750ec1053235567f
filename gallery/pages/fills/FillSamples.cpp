#include "gallery/pages/fills/FillSamples.h"

#include <utility>

#include "gallery/pages/fills/ShadowSample.h"

namespace bkuk::gallery {

namespace {

using Directions = BKUKLinearGradientSettings::Directions;
using Look = BKUKFillView::Look;

constexpr BKUKCornerSettings corner = BKUKCornerSettings::radius(16);
constexpr unsigned upperCorners = CALayerMinXMaxYCorner | CALayerMaxXMaxYCorner;
constexpr unsigned crossCorners = CALayerMinXMaxYCorner | CALayerMaxXMinYCorner;

Ref<BKUKFillView> makeFillView(Look look, std::vector<BKUKFill> fills = {}) {
  auto view = make<BKUKFillView>(std::move(look));
  view->setFills(std::move(fills));
  return view;
}

Ref<Specimen> makeSpecimen(Ref<NSView> shown, const char* name, const char* remark) {
  return make<Specimen>(std::move(shown), name, remark);
}

BKUKFill linear(std::vector<Ref<NSColor>> colors, const Directions& direction, CGFloat opacity = 1) {
  BKUKLinearGradientSettings settings{.gradient = {std::move(colors), std::nullopt}, .opacity = opacity};
  settings.setStartEndPoint(direction);
  return BKUKFill::linearGradient(std::move(settings));
}

BKUKFill radial(std::vector<Ref<NSColor>> colors, CGPoint center, CGSize radius, CGFloat opacity = 1) {
  return BKUKFill::radialGradient({{std::move(colors), std::nullopt}, center, radius, opacity});
}

Ref<NSColor> faded(const Ref<NSColor>& color) { return color->withAlphaComponent(0); }

std::vector<BKUKFill> stackOfThree() {
  const auto light = NSColor::srgbRed(1, 1, 1, 1);
  return {BKUKFill::color(BKUKTheme::premium()),
          linear({faded(BKUKTheme::main()), BKUKTheme::main()}, Directions::topBottom, 0.6),
          radial({light, faded(light)}, {0.2, 0.95}, {0.75, 1.1}, 0.55)};
}

Ref<Specimen> makeShadowSpecimen(Look look, ShadowSample::Shadow shadow, const char* name,
                                 const char* remark) {
  look.corner = corner;
  return makeSpecimen(make<ShadowSample>(makeFillView(std::move(look)), corner, std::move(shadow)), name,
                      remark);
}

/// Black that is as strong on a dark page as on a light one.
Color shade(CGFloat light, CGFloat dark) {
  return [=]() -> Ref<NSColor> {
    return make<BKUKThemedColor>(NSColor::srgbRed(0, 0, 0, light), NSColor::srgbRed(0, 0, 0, dark));
  };
}

}  // namespace

std::vector<Ref<Specimen>> makeFillSpecimens() {
  const Look look{.corner = corner};
  return {
      makeSpecimen(makeFillView(look, {BKUKFill::color(BKUKTheme::accent())}), "Colour", "One solid fill"),
      makeSpecimen(
          makeFillView(look, {linear({BKUKTheme::brand(), BKUKTheme::accent()}, Directions::degrees(135))}),
          "Linear gradient", "From the upper left corner"),
      makeSpecimen(makeFillView(look, {radial({BKUKTheme::attention(), BKUKTheme::critical()}, {0.5, 0.5},
                                              {0.55, 0.9})}),
                   "Radial gradient", "From the middle to an ellipse"),
      makeSpecimen(makeFillView(look, stackOfThree()), "Stack of three", "Colour, linear, radial")};
}

std::vector<Ref<Specimen>> makeCornerSpecimens() {
  const auto accent = BKUKTheme::accent();
  const auto soft = BKUKTheme::highlightAccent();
  return {makeSpecimen(makeFillView({.background = soft,
                                     .corner = corner,
                                     .borderColor = BKUKTheme::onSurfaceLight(),
                                     .borderWidth = 1}),
                       "All corners", "16 pt, border 1 pt"),
          makeSpecimen(makeFillView({.background = soft,
                                     .corner = BKUKCornerSettings::radius(28),
                                     .cornerMask = upperCorners,
                                     .borderColor = accent,
                                     .borderWidth = 2}),
                       "Upper corners", "28 pt, border 2 pt"),
          makeSpecimen(makeFillView({.background = soft,
                                     .corner = BKUKCornerSettings::ratio(0.5),
                                     .cornerMask = crossCorners,
                                     .borderColor = accent,
                                     .borderWidth = 4}),
                       "Two across", "Half the shorter side, border 4 pt"),
          makeSpecimen(makeFillView({.corner = BKUKCornerSettings::round,
                                     .borderColor = BKUKTheme::accentHighContrast(),
                                     .borderWidth = 2},
                                    {linear({soft, accent}, Directions::leftRight)}),
                       "Round", "Gradient below a border of 2 pt")};
}

std::vector<Ref<Specimen>> makeShadowSpecimens() {
  const auto surface = BKUKTheme::surface();
  return {makeShadowSpecimen({.background = surface},
                             {.color = shade(0.24, 0.75), .radius = 16, .offset = {0, -6}}, "Outer, soft",
                             "Radius 16, 6 pt below"),
          makeShadowSpecimen(
              {.background = BKUKTheme::accent()},
              {.color = role(BKUKThemeColorRole::accent), .radius = 16, .offset = {0, -5}, .opacity = 0.7},
              "Outer, coloured", "Accent, opacity 70 %"),
          makeShadowSpecimen({}, {.color = role(BKUKThemeColorRole::brand), .radius = 16, .opacity = 0.9},
                             "Outer, alone", "Nothing is left under the shape"),
          makeShadowSpecimen(
              {.background = surface},
              {.type = BKUKShadowType::inner, .color = shade(0.42, 0.9), .radius = 12, .offset = {0, -4}},
              "Inner", "Radius 12, 4 pt below")};
}

BKUKLinearGradientSettings directedGradient(const Directions& direction) {
  BKUKLinearGradientSettings settings{
      .gradient = {{BKUKTheme::brand(), BKUKTheme::accent(), BKUKTheme::premium()}, std::nullopt}};
  settings.setStartEndPoint(direction);
  return settings;
}

std::vector<Ref<Specimen>> makeDirectionSpecimens() {
  const auto specimen = [](const Directions& direction, const char* name, const char* remark) {
    return makeSpecimen(
        makeFillView({.corner = corner}, {BKUKFill::linearGradient(directedGradient(direction))}), name,
        remark);
  };
  return {specimen(Directions::bottomTop, "bottomTop", "Starts at the lower edge"),
          specimen(Directions::topBottom, "topBottom", "Starts at the upper edge"),
          specimen(Directions::leftRight, "leftRight", "Starts at the left edge"),
          specimen(Directions::rightLeft, "rightLeft", "Starts at the right edge")};
}

}  // namespace bkuk::gallery
