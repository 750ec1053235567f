#include "BrenvikUIKit/drawing/BKUKFill.h"

#include "BrenvikUIKit/drawing/ColorEquality.h"

namespace bkuk {

bool BKUKFill::operator==(const BKUKFill& other) const {
  const auto* color = std::get_if<Ref<NSColor>>(&value_);
  const auto* otherColor = std::get_if<Ref<NSColor>>(&other.value_);
  return color && otherColor ? areEqual(*color, *otherColor) : value_ == other.value_;
}

}  // namespace bkuk
