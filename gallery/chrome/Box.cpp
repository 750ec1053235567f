#include "gallery/chrome/Box.h"

#include <utility>

namespace bkuk::gallery {

Box::Box() = default;

Box::Box(Look look) : look_(std::move(look)) {}

void Box::setLook(Look look) {
  look_ = std::move(look);
  setNeedsDisplay(true);
}

void Box::updateLayer() {
  const auto& box = layer();
  box->setBackgroundColor(look_.fill ? look_.fill()->cgColor() : nullptr);
  box->setCornerRadius(look_.cornerRadius);
  box->setMasksToBounds(look_.clips);
  box->setBorderWidth(look_.border ? look_.borderWidth : 0);
  if (look_.border) box->setBorderColor(look_.border()->cgColor());
}

}  // namespace bkuk::gallery
