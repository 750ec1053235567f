#include "platform/appkit/text/NSParagraphStyle.h"

#include <functional>

#include "platform/foundation/Permanent.h"

namespace bkuk {

const Ref<NSParagraphStyle>& NSParagraphStyle::default_() {
  static const auto& style = permanent([] { return make<NSParagraphStyle>(); });
  return style;
}

Ref<NSMutableParagraphStyle> NSParagraphStyle::mutableCopy() const {
  return make<NSMutableParagraphStyle>(*this);
}

bool NSParagraphStyle::isEqual(const NSObject* other) const {
  const auto* style = dynamic_cast<const NSParagraphStyle*>(other);
  return style && values_ == style->values_;
}

std::size_t NSParagraphStyle::hash() const {
  const auto modes =
      static_cast<std::size_t>(values_.alignment) * 8 + static_cast<std::size_t>(values_.lineBreakMode);
  return modes * 31 + std::hash<CGFloat>()(values_.minimumLineHeight);
}

}  // namespace bkuk
