#include "BrenvikUIKit/style/BKUKStatefulFills.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

std::optional<Ref<NSColor>> colorOf(const BKUKFill& fill) {
  const auto* color = std::get_if<Ref<NSColor>>(&fill.value());
  return color ? givenOrAbsent(std::optional(*color)) : std::nullopt;
}

}  // namespace

template <typename T>
BKUKStatefulColors BKUKStatefulSettings<T>::convertToStatefulColor()
    const requires std::same_as<T, BKUKFill> {
  const auto color = colorOf(normal());
  if (!color) fatal("The normal fill has no color", "BrenvikUIKit/BKUKStatefulSettings");
  return {*color, colorOf(hover()), colorOf(pressed()), colorOf(disabled())};
}

template BKUKStatefulColors BKUKStatefulSettings<BKUKFill>::convertToStatefulColor() const;

}  // namespace bkuk
