#include "platform/coregraphics/CGColor.h"

#include <algorithm>
#include <functional>
#include <initializer_list>

#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

struct Rgb {
  CGFloat red, green, blue;
};

Ref<CGColor> makeColor(const Ref<CGColorSpace>& space, std::initializer_list<CGFloat> components) {
  return make<CGColor>(space, std::span<const CGFloat>(components.begin(), components.size()));
}

Rgb rgbFrom(CGColorSpaceModel model, std::span<const CGFloat> c) {
  switch (model) {
    case CGColorSpaceModel::monochrome:
      return {c[0], c[0], c[0]};
    case CGColorSpaceModel::rgb:
      return {c[0], c[1], c[2]};
    case CGColorSpaceModel::cmyk:
      return {(1 - c[0]) * (1 - c[3]), (1 - c[1]) * (1 - c[3]), (1 - c[2]) * (1 - c[3])};
  }
  trap("CGColor: a colour space of no known model");
}

CGFloat grayFrom(Rgb rgb) { return 0.299 * rgb.red + 0.587 * rgb.green + 0.114 * rgb.blue; }

Ref<CGColor> cmykFrom(const Ref<CGColorSpace>& space, Rgb rgb, CGFloat alpha) {
  const CGFloat light = std::max({rgb.red, rgb.green, rgb.blue});
  if (light <= 0) return makeColor(space, {0, 0, 0, 1, alpha});
  return makeColor(space,
                   {1 - rgb.red / light, 1 - rgb.green / light, 1 - rgb.blue / light, 1 - light, alpha});
}

// Also turns what is no number into 0.
double unit(CGFloat value) { return value > 0 ? std::min(value, 1.0) : 0; }

}  // namespace

CGColor::CGColor(const Ref<CGColorSpace>& space, std::span<const CGFloat> components)
    : space_(space), count_(components.size()) {
  if (!space) trap("CGColor: no colour space; give one, as CGColorSpace::sRGB()");
  if (count_ != space->numberOfComponents() + 1) {
    fatal("a colour needs as many components as its space has, and alpha", "CGColor");
  }
  std::copy(components.begin(), components.end(), components_.begin());
}

Ref<CGColor> CGColor::srgb(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return makeColor(CGColorSpace::sRGB(), {red, green, blue, alpha});
}

Ref<CGColor> CGColor::gray(CGFloat white, CGFloat alpha) {
  return makeColor(CGColorSpace::genericGrayGamma2_2(), {white, alpha});
}

Ref<CGColor> CGColor::cmyk(CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black, CGFloat alpha) {
  return makeColor(CGColorSpace::deviceCMYK(), {cyan, magenta, yellow, black, alpha});
}

const Ref<CGColor>& CGColor::black() {
  static const auto& color = permanent([] { return gray(0); });
  return color;
}

const Ref<CGColor>& CGColor::white() {
  static const auto& color = permanent([] { return gray(1); });
  return color;
}

const Ref<CGColor>& CGColor::clear() {
  static const auto& color = permanent([] { return gray(0, 0); });
  return color;
}

Ref<CGColor> CGColor::copy(CGFloat alpha) const {
  auto components = components_;
  components[count_ - 1] = alpha;
  return make<CGColor>(space_, std::span<const CGFloat>(components.data(), count_));
}

Ref<CGColor> CGColor::converted(const Ref<CGColorSpace>& space) const {
  if (space == space_) return Ref<CGColor>(const_cast<CGColor*>(this));
  if (space->model() == space_->model()) return make<CGColor>(space, components());
  const Rgb rgb = rgbFrom(space_->model(), components());
  switch (space->model()) {
    case CGColorSpaceModel::monochrome:
      return makeColor(space, {grayFrom(rgb), alpha()});
    case CGColorSpaceModel::rgb:
      return makeColor(space, {rgb.red, rgb.green, rgb.blue, alpha()});
    case CGColorSpaceModel::cmyk:
      return cmykFrom(space, rgb, alpha());
  }
  trap("CGColor: a colour space of no known model");
}

host::Rgba CGColor::rgba() const {
  const Rgb rgb = rgbFrom(space_->model(), components());
  return {unit(rgb.red), unit(rgb.green), unit(rgb.blue), unit(alpha())};
}

bool CGColor::operator==(const CGColor& other) const {
  return space_ == other.space_ && std::ranges::equal(components(), other.components());
}

bool CGColor::isEqual(const NSObject* other) const {
  const auto* color = dynamic_cast<const CGColor*>(other);
  return color && *this == *color;
}

std::size_t CGColor::hash() const {
  std::size_t result = space_->hash();
  for (const CGFloat component : components()) result = result * 31 + std::hash<CGFloat>{}(component);
  return result;
}

}  // namespace bkuk
