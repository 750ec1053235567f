#include "BrenvikUIKit/style/BKUKStatefulFills.h"

#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

std::optional<Ref<NSColor>> colorOf(const BKUKFill& fill) {
  const auto* color = std::get_if<Ref<NSColor>>(&fill.value());
  return color ? givenOrAbsent(std::optional(*color)) : std::nullopt;
}

}  // namespace

const BKUKStatefulFills& BKUKStatefulPresets<BKUKFill>::clear() {
  static const auto& fills = permanent([] { return BKUKStatefulFills(BKUKFill::clear()); });
  return fills;
}

BKUKStatefulColors BKUKStatefulPresets<BKUKFill>::convertToStatefulColor() const {
  const auto& fills = static_cast<const BKUKStatefulFills&>(*this);
  const auto color = colorOf(fills.normal());
  if (!color) fatal("The normal fill has no color", "BrenvikUIKit/BKUKStatefulSettings");
  return {*color, colorOf(fills.hover()), colorOf(fills.pressed()), colorOf(fills.disabled())};
}

}  // namespace bkuk
