#include "platform/appkit/NSComponentColor.h"

#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk {

NSComponentColor::NSComponentColor(Ref<CGColor> color) : color_(std::move(color)) {
  if (!color_) trap("NSColor: a colour of nothing; make it of a CGColor that is there");
}

bool NSComponentColor::isEqual(const NSObject* other) const {
  const auto* plain = dynamic_cast<const NSComponentColor*>(other);
  return plain && color_->isEqual(plain->color_.get());
}

}  // namespace bkuk
