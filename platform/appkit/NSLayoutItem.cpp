#include "platform/appkit/NSLayoutItem.h"

#include "platform/appkit/NSView.h"
#include "platform/appkit/constraints/LayoutPart.h"

namespace bkuk {

NSLayoutItem::NSLayoutItem() = default;
NSLayoutItem::~NSLayoutItem() = default;

LayoutPart& NSLayoutItem::layoutPart() {
  if (!layoutPart_) layoutPart_ = std::make_unique<LayoutPart>();
  return *layoutPart_;
}

NSLayoutItem* layoutItem(NSObject* object, bool isGuide) {
  if (!object) return nullptr;
  if (isGuide) return static_cast<NSLayoutGuide*>(object);
  return static_cast<NSView*>(object);
}

using Attribute = NSLayoutAttribute;

Ref<NSLayoutXAxisAnchor> NSLayoutItem::leadingAnchor() {
  return make<NSLayoutXAxisAnchor>(*this, Attribute::leading);
}
Ref<NSLayoutXAxisAnchor> NSLayoutItem::trailingAnchor() {
  return make<NSLayoutXAxisAnchor>(*this, Attribute::trailing);
}
Ref<NSLayoutXAxisAnchor> NSLayoutItem::leftAnchor() {
  return make<NSLayoutXAxisAnchor>(*this, Attribute::left);
}
Ref<NSLayoutXAxisAnchor> NSLayoutItem::rightAnchor() {
  return make<NSLayoutXAxisAnchor>(*this, Attribute::right);
}
Ref<NSLayoutXAxisAnchor> NSLayoutItem::centerXAnchor() {
  return make<NSLayoutXAxisAnchor>(*this, Attribute::centerX);
}
Ref<NSLayoutYAxisAnchor> NSLayoutItem::topAnchor() {
  return make<NSLayoutYAxisAnchor>(*this, Attribute::top);
}
Ref<NSLayoutYAxisAnchor> NSLayoutItem::bottomAnchor() {
  return make<NSLayoutYAxisAnchor>(*this, Attribute::bottom);
}
Ref<NSLayoutYAxisAnchor> NSLayoutItem::centerYAnchor() {
  return make<NSLayoutYAxisAnchor>(*this, Attribute::centerY);
}
Ref<NSLayoutYAxisAnchor> NSLayoutItem::firstBaselineAnchor() {
  return make<NSLayoutYAxisAnchor>(*this, Attribute::firstBaseline);
}
Ref<NSLayoutYAxisAnchor> NSLayoutItem::lastBaselineAnchor() {
  return make<NSLayoutYAxisAnchor>(*this, Attribute::lastBaseline);
}
Ref<NSLayoutDimension> NSLayoutItem::widthAnchor() {
  return make<NSLayoutDimension>(*this, Attribute::width);
}
Ref<NSLayoutDimension> NSLayoutItem::heightAnchor() {
  return make<NSLayoutDimension>(*this, Attribute::height);
}

}  // namespace bkuk
