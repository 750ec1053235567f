#include "platform/appkit/drawing/NSColor.h"

#include <algorithm>
#include <array>

#include "platform/appkit/drawing/ComponentColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSColor";

const NSCodingRegistration registration("NSColor", [](NSCoder& coder) { return NSColor::decoded(coder); });

template <std::same_as<CGFloat>... Components>
Ref<NSColor> inSpace(const Ref<CGColorSpace>& space, Components... components) {
  const std::array all = {components...};
  return make<ComponentColor>(make<CGColor>(space, all));
}

// A number that is none counts as 0.
CGFloat cutToUnit(CGFloat value) { return std::min(1.0, std::max(0.0, value)); }

void store(CGFloat* target, CGFloat value) {
  if (target) *target = value;
}

struct KnownSpace {
  const Ref<CGColorSpace>& (*space)();
  std::string_view colorSpaceName;
};

constexpr std::array knownSpaces = {
    KnownSpace{&CGColorSpace::sRGB, NSCustomColorSpace},
    KnownSpace{&CGColorSpace::genericRGB, NSCalibratedRGBColorSpace},
    KnownSpace{&CGColorSpace::deviceRGB, NSDeviceRGBColorSpace},
    KnownSpace{&CGColorSpace::genericGrayGamma2_2, NSCalibratedWhiteColorSpace},
    KnownSpace{&CGColorSpace::deviceGray, NSDeviceWhiteColorSpace},
    KnownSpace{&CGColorSpace::deviceCMYK, NSDeviceCMYKColorSpace},
};

template <typename Predicate>
Ref<CGColorSpace> findSpace(Predicate fits) {
  const auto* const found = std::ranges::find_if(knownSpaces, fits);
  return found == knownSpaces.end() ? nullptr : found->space();
}

constexpr std::string_view spaceKey = "space";
// By the components' indices, alpha last.
constexpr std::array<std::string_view, 5> componentKeys = {"0", "1", "2", "3", "4"};

struct HSB {
  CGFloat hue = 0;
  CGFloat saturation = 0;
  CGFloat brightness = 0;
};

// The sixth of the colour circle in which the largest component leads, and how far into it, as a fraction of
// the whole circle.
CGFloat hueOf(CGFloat red, CGFloat green, CGFloat blue, CGFloat largest, CGFloat span) {
  CGFloat sixths = 0;
  if (largest == red)
    sixths = (green - blue) / span;
  else if (largest == green)
    sixths = 2 + (blue - red) / span;
  else
    sixths = 4 + (red - green) / span;
  return sixths < 0 ? sixths / 6 + 1 : sixths / 6;
}

HSB hsbOf(const NSColor& color) {
  const CGFloat red = color.redComponent();
  const CGFloat green = color.greenComponent();
  const CGFloat blue = color.blueComponent();
  const CGFloat largest = std::max({red, green, blue});
  const CGFloat span = largest - std::min({red, green, blue});
  if (largest <= 0 || span == 0) return {.brightness = largest};
  return {hueOf(red, green, blue, largest, span), span / largest, largest};
}

struct CalibratedRGB {
  CGFloat red = 0;
  CGFloat green = 0;
  CGFloat blue = 0;
  CGFloat alpha = 0;
};

CalibratedRGB componentsOf(const NSColor& calibrated) {
  CalibratedRGB rgb;
  calibrated.getRed(&rgb.red, &rgb.green, &rgb.blue, &rgb.alpha);
  return rgb;
}

[[noreturn]] void failWithoutCatalogue(std::string_view member) {
  fatal(std::string(member) + " is defined only for colors of a catalogue", unit);
}

}  // namespace

Ref<NSColor> NSColor::srgbRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return inSpace(CGColorSpace::sRGB(), red, green, blue, alpha);
}

Ref<NSColor> NSColor::calibratedRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return inSpace(CGColorSpace::genericRGB(), red, green, blue, alpha);
}

Ref<NSColor> NSColor::deviceRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return inSpace(CGColorSpace::deviceRGB(), red, green, blue, alpha);
}

Ref<NSColor> NSColor::calibratedWhite(CGFloat white, CGFloat alpha) {
  return inSpace(CGColorSpace::genericGrayGamma2_2(), white, alpha);
}

Ref<NSColor> NSColor::deviceWhite(CGFloat white, CGFloat alpha) {
  return inSpace(CGColorSpace::deviceGray(), white, alpha);
}

Ref<NSColor> NSColor::genericGamma22White(CGFloat white, CGFloat alpha) {
  return inSpace(CGColorSpace::genericGrayGamma2_2(), white, alpha);
}

Ref<NSColor> NSColor::deviceCyan(CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black,
                                 CGFloat alpha) {
  return inSpace(CGColorSpace::deviceCMYK(), cyan, magenta, yellow, black, alpha);
}

Ref<NSColor> NSColor::withCGColor(const Ref<CGColor>& color) { return make<ComponentColor>(color); }

const Ref<NSColor>& NSColor::clear() {
  static const auto& color = permanent([] { return genericGamma22White(0, 0); });
  return color;
}

const Ref<NSColor>& NSColor::black() {
  static const auto& color = permanent([] { return genericGamma22White(0, 1); });
  return color;
}

const Ref<NSColor>& NSColor::white() {
  static const auto& color = permanent([] { return genericGamma22White(1, 1); });
  return color;
}

const Ref<NSColor>& NSColor::gray() {
  static const auto& color = permanent([] { return genericGamma22White(0.5, 1); });
  return color;
}

const Ref<NSColor>& NSColor::red() {
  static const auto& color = permanent([] { return srgbRed(1, 0, 0, 1); });
  return color;
}

const Ref<NSColor>& NSColor::green() {
  static const auto& color = permanent([] { return srgbRed(0, 1, 0, 1); });
  return color;
}

const Ref<NSColor>& NSColor::blue() {
  static const auto& color = permanent([] { return srgbRed(0, 0, 1, 1); });
  return color;
}

const Ref<NSColor>& NSColor::highlightColor() { return white(); }

const Ref<NSColor>& NSColor::shadowColor() { return black(); }

std::function<Ref<NSColor>()>& NSColor::keyboardFocusIndicatorColor =
    *new std::function<Ref<NSColor>()>([] { return srgbRed(0.16, 0.5, 0.96, 0.9); });

void NSColor::set() const {
  setFill();
  setStroke();
}

void NSColor::setFill() const {
  if (const auto context = NSGraphicsContext::current()) context->cgContext()->setFillColor(cgColor());
}

void NSColor::setStroke() const {
  if (const auto context = NSGraphicsContext::current()) context->cgContext()->setStrokeColor(cgColor());
}

Ref<CGColorSpace> NSColor::colorSpace() const { return cgColor()->colorSpace(); }

std::string NSColor::colorSpaceName() const {
  const auto space = colorSpace();
  const auto* const found =
      std::ranges::find_if(knownSpaces, [&](const KnownSpace& known) { return known.space() == space; });
  return std::string(found == knownSpaces.end() ? NSCustomColorSpace : found->colorSpaceName);
}

std::size_t NSColor::numberOfComponents() const { return cgColor()->numberOfComponents(); }

void NSColor::getComponents(std::span<CGFloat> components) const {
  const auto color = cgColor();
  if (components.size() < color->numberOfComponents()) fatal("There is no room for the components", unit);
  std::ranges::copy(color->components(), components.begin());
}

CGFloat NSColor::alphaComponent() const { return cgColor()->alpha(); }

Ref<NSColor> NSColor::usingColorSpace(const Ref<CGColorSpace>& space) const {
  if (!space) return nullptr;
  // Colours are immutable, so who asks for a conversion may share this very object.
  if (colorSpace() == space) return const_cast<NSColor*>(this);
  return withCGColor(cgColor()->converted(space));
}

Ref<NSColor> NSColor::usingColorSpaceName(std::string_view name, const NSObject*) const {
  if (name == colorSpaceName()) return const_cast<NSColor*>(this);
  if (name == NSCustomColorSpace) return nullptr;
  return usingColorSpace(findSpace([&](const KnownSpace& known) { return known.colorSpaceName == name; }));
}

CGFloat NSColor::component(CGColorSpaceModel model, std::size_t index, std::string_view member) const {
  const auto color = cgColor();
  const auto& space = color->colorSpace();
  if (space->model() != model)
    fatal(std::string(member) + " is not defined for a color in " + std::string(space->name()), unit);
  return color->components()[index];
}

CGFloat NSColor::redComponent() const { return component(CGColorSpaceModel::rgb, 0, "redComponent"); }

CGFloat NSColor::greenComponent() const { return component(CGColorSpaceModel::rgb, 1, "greenComponent"); }

CGFloat NSColor::blueComponent() const { return component(CGColorSpaceModel::rgb, 2, "blueComponent"); }

void NSColor::getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const {
  store(red, redComponent());
  store(green, greenComponent());
  store(blue, blueComponent());
  store(alpha, alphaComponent());
}

CGFloat NSColor::hueComponent() const { return hsbOf(*this).hue; }

CGFloat NSColor::saturationComponent() const { return hsbOf(*this).saturation; }

CGFloat NSColor::brightnessComponent() const { return hsbOf(*this).brightness; }

void NSColor::getHue(CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) const {
  const HSB hsb = hsbOf(*this);
  store(hue, hsb.hue);
  store(saturation, hsb.saturation);
  store(brightness, hsb.brightness);
  store(alpha, alphaComponent());
}

CGFloat NSColor::whiteComponent() const {
  return component(CGColorSpaceModel::monochrome, 0, "whiteComponent");
}

void NSColor::getWhite(CGFloat* white, CGFloat* alpha) const {
  store(white, whiteComponent());
  store(alpha, alphaComponent());
}

CGFloat NSColor::cyanComponent() const { return component(CGColorSpaceModel::cmyk, 0, "cyanComponent"); }

CGFloat NSColor::magentaComponent() const {
  return component(CGColorSpaceModel::cmyk, 1, "magentaComponent");
}

CGFloat NSColor::yellowComponent() const { return component(CGColorSpaceModel::cmyk, 2, "yellowComponent"); }

CGFloat NSColor::blackComponent() const { return component(CGColorSpaceModel::cmyk, 3, "blackComponent"); }

void NSColor::getCyan(CGFloat* cyan, CGFloat* magenta, CGFloat* yellow, CGFloat* black,
                      CGFloat* alpha) const {
  store(cyan, cyanComponent());
  store(magenta, magentaComponent());
  store(yellow, yellowComponent());
  store(black, blackComponent());
  store(alpha, alphaComponent());
}

std::string NSColor::catalogNameComponent() const { failWithoutCatalogue("catalogNameComponent"); }

std::string NSColor::colorNameComponent() const { failWithoutCatalogue("colorNameComponent"); }

std::string NSColor::localizedCatalogNameComponent() const {
  failWithoutCatalogue("localizedCatalogNameComponent");
}

std::string NSColor::localizedColorNameComponent() const {
  failWithoutCatalogue("localizedColorNameComponent");
}

Ref<NSColor> NSColor::withAlphaComponent(CGFloat alpha) const {
  return withCGColor(cgColor()->copy(cutToUnit(alpha)));
}

Ref<NSColor> NSColor::blended(CGFloat fraction, const Ref<NSColor>& other) const {
  const auto from = usingColorSpace(CGColorSpace::genericRGB());
  const auto to = other ? other->usingColorSpace(CGColorSpace::genericRGB()) : nullptr;
  if (!from || !to) return nullptr;
  const CalibratedRGB a = componentsOf(*from);
  const CalibratedRGB b = componentsOf(*to);
  const CGFloat f = cutToUnit(fraction);
  const auto mix = [f](CGFloat x, CGFloat y) { return (1 - f) * x + f * y; };
  return calibratedRed(mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha));
}

Ref<NSColor> NSColor::highlight(CGFloat level) const { return blended(level, highlightColor()); }

Ref<NSColor> NSColor::shadow(CGFloat level) const { return blended(level, shadowColor()); }

void NSColor::encode(NSCoder& coder) const {
  const auto color = cgColor();
  coder.encodeString(color->colorSpace()->name(), spaceKey);
  for (std::size_t i = 0; i < color->numberOfComponents(); ++i)
    coder.encodeDouble(color->components()[i], componentKeys[i]);
}

Ref<NSColor> NSColor::decoded(NSCoder& coder) {
  const auto name = coder.decodeString(spaceKey);
  if (!name) return nullptr;
  const auto space = findSpace([&](const KnownSpace& known) { return known.space()->name() == *name; });
  if (!space) return nullptr;
  std::array<CGFloat, componentKeys.size()> components{};
  const auto used = std::span(components).first(space->numberOfComponents() + 1);
  for (std::size_t i = 0; i < used.size(); ++i) {
    const auto component = coder.decodeDouble(componentKeys[i]);
    if (!component) return nullptr;
    used[i] = *component;
  }
  return withCGColor(make<CGColor>(space, used));
}

}  // namespace bkuk
