#include "platform/appkit/NSAppearance.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

Ref<NSAppearance>& drawingAppearance() {
  static auto& appearance = *new Ref<NSAppearance>;
  return appearance;
}

}  // namespace

struct NSAppearance::Known {
  std::string_view name;
  Family family;
};

constexpr NSAppearance::Known NSAppearance::known[] = {
    {NSAppearanceNameAqua, Family::light},
    {NSAppearanceNameDarkAqua, Family::dark},
    {NSAppearanceNameVibrantLight, Family::light},
    {NSAppearanceNameVibrantDark, Family::dark},
    {NSAppearanceNameAccessibilityAqua, Family::light},
    {NSAppearanceNameAccessibilityDarkAqua, Family::dark},
    {NSAppearanceNameUnknown, Family::none},
};

const NSAppearance::Known* NSAppearance::find(std::string_view name) {
  const auto* found = std::ranges::find(known, name, &Known::name);
  return found == std::end(known) ? nullptr : found;
}

NSAppearance::NSAppearance(std::string_view name)
    : name_(name), family_(find(name) ? find(name)->family : Family::none) {}

Ref<NSAppearance> NSAppearance::named(std::string_view name) {
  static auto& made = *new std::array<Ref<NSAppearance>, std::size(known)>;
  const auto* entry = find(name);
  if (!entry) return make<NSAppearance>(name);
  auto& appearance = made[static_cast<std::size_t>(entry - known)];
  if (!appearance) appearance = permanentObject<NSAppearance>(name);
  return appearance;
}

std::optional<std::string_view> NSAppearance::bestMatch(std::span<const std::string_view> names) const {
  const auto own = std::ranges::find(names, name_);
  if (own != names.end()) return *own;
  if (family_ == Family::none) return std::nullopt;
  const auto family = std::ranges::find(names, isDark() ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua);
  return family == names.end() ? std::nullopt : std::optional(*family);
}

Ref<NSAppearance> NSAppearance::currentDrawing() {
  return drawingAppearance() ? drawingAppearance() : NSApplication::shared().effectiveAppearance();
}

void NSAppearance::performAsCurrentDrawingAppearance(const std::function<void()>& block) {
  required(block, "NSAppearance: performAsCurrentDrawingAppearance without a block");
  const Ref<NSAppearance> outer = std::exchange(drawingAppearance(), Ref<NSAppearance>(this));
  block();
  drawingAppearance() = outer;
}

bool NSAppearance::isEqual(const NSObject* other) const {
  const auto* appearance = dynamic_cast<const NSAppearance*>(other);
  return appearance && appearance->name_ == name_;
}

std::size_t NSAppearance::hash() const { return std::hash<std::string_view>{}(name_); }

}  // namespace bkuk
