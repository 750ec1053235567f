#include "platform/appkit/drawing/ComponentColor.h"

#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk {

ComponentColor::ComponentColor(Ref<CGColor> color) : color_(std::move(color)) {
  if (!color_) trap("NSColor: a colour of nothing; make it of a CGColor that is there");
}

bool ComponentColor::isEqual(const NSObject* other) const {
  const auto* plain = dynamic_cast<const ComponentColor*>(other);
  return plain && color_->isEqual(plain->color_.get());
}

}  // namespace bkuk
