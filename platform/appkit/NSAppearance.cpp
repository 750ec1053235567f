#include "platform/appkit/NSAppearance.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

struct Kind {
  std::string_view name;
  std::string_view family;
};

constexpr std::array kinds = {
    Kind{NSAppearanceNameAqua, NSAppearanceNameAqua},
    Kind{NSAppearanceNameDarkAqua, NSAppearanceNameDarkAqua},
    Kind{NSAppearanceNameVibrantLight, NSAppearanceNameAqua},
    Kind{NSAppearanceNameVibrantDark, NSAppearanceNameDarkAqua},
    Kind{NSAppearanceNameAccessibilityAqua, NSAppearanceNameAqua},
    Kind{NSAppearanceNameAccessibilityDarkAqua, NSAppearanceNameDarkAqua},
    Kind{NSAppearanceNameUnknown, {}},
};

const Kind* findKind(std::string_view name) {
  const auto* const found = std::ranges::find(kinds, name, &Kind::name);
  return found == kinds.end() ? nullptr : found;
}

std::string_view familyOf(std::string_view name) {
  const Kind* kind = findKind(name);
  return kind ? kind->family : std::string_view();
}

Ref<NSAppearance>& drawingAppearance() {
  static auto& appearance = *new Ref<NSAppearance>;
  return appearance;
}

}  // namespace

NSAppearance::NSAppearance(std::string_view name) : name_(name), family_(familyOf(name)) {}

Ref<NSAppearance> NSAppearance::named(std::string_view name) {
  static auto& known = *new std::array<Ref<NSAppearance>, kinds.size()>;
  const Kind* kind = findKind(name);
  if (!kind) return make<NSAppearance>(name);
  auto& appearance = known[static_cast<std::size_t>(kind - kinds.data())];
  if (!appearance) appearance = permanentObject<NSAppearance>(name);
  return appearance;
}

std::optional<std::string_view> NSAppearance::bestMatch(std::span<const std::string_view> names) const {
  const auto own = std::ranges::find(names, name_);
  if (own != names.end()) return *own;
  const auto family = family_.empty() ? names.end() : std::ranges::find(names, family_);
  if (family != names.end()) return *family;
  return std::nullopt;
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
