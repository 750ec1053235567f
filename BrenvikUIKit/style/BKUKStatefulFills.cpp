#include "BrenvikUIKit/style/BKUKStatefulFills.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

std::optional<Ref<NSColor>> colorOf(const BKUKFill& fill) {
  const auto* color = std::get_if<Ref<NSColor>>(&fill.value());
  return color ? std::optional(*color) : std::nullopt;
}

}  // namespace

template <>
const BKUKStatefulFills& BKUKStatefulFills::clear() {
  static const auto& fills = *new BKUKStatefulFills(BKUKFill::clear());
  return fills;
}

template <>
BKUKStatefulColors BKUKStatefulFills::convertToStatefulColor() const {
  const auto color = colorOf(normal());
  if (!color) fatal("The normal fill has no color", "BrenvikUIKit/BKUKStatefulSettings");
  return {*color, colorOf(hover()), colorOf(pressed()), colorOf(disabled())};
}

}  // namespace bkuk
