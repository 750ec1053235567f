#include "BrenvikUIKit/drawing/BKUKGradient.h"

#include <algorithm>

#include "BrenvikUIKit/drawing/ColorEquality.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

std::vector<Ref<CGColor>> BKUKGradient::cgColors() const {
  std::vector<Ref<CGColor>> resolved;
  resolved.reserve(colors.size());
  for (const auto& color : colors) {
    resolved.push_back(required(color, "BKUKGradient: a color of nothing; give every stop one")->cgColor());
  }
  return resolved;
}

Ref<CGGradient> BKUKGradient::cg() const {
  return CGGradient::create(CGColorSpace::deviceRGB(), cgColors(), locations);
}

bool BKUKGradient::operator==(const BKUKGradient& other) const {
  return locations == other.locations && std::ranges::equal(colors, other.colors, areEqual);
}

}  // namespace bkuk
