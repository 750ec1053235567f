#include "platform/appkit/drawing/NSShadow.h"

#include <utility>

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"

namespace bkuk {

NSShadow::NSShadow() : color_(NSColor::black()->withAlphaComponent(1.0 / 3)) {}

void NSShadow::setShadowColor(Ref<NSColor> color) { color_ = std::move(color); }

void NSShadow::set() const {
  const auto context = NSGraphicsContext::current();
  if (!context) return;
  context->cgContext()->setShadow(offset_, blurRadius_, color_ ? color_->cgColor() : nullptr);
}

Ref<NSShadow> NSShadow::copy() const {
  auto copy = make<NSShadow>();
  copy->offset_ = offset_;
  copy->blurRadius_ = blurRadius_;
  copy->color_ = color_;
  return copy;
}

}  // namespace bkuk
