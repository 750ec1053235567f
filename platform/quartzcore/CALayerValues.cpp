// The part of CALayer that reads and writes its properties by key.

#include <algorithm>
#include <array>

#include "platform/coregraphics/CGPath.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CAPropertyTable.h"
#include "platform/quartzcore/LayerExtras.h"

namespace bkuk {

namespace {

using Property = CAProperty<CALayer>;

constexpr std::array properties{
    Property::of<&CALayer::bounds, &CALayer::setBounds>("bounds"),
    Property::of<&CALayer::position, &CALayer::setPosition>("position"),
    Property::of<&CALayer::anchorPoint, &CALayer::setAnchorPoint>("anchorPoint"),
    Property::of<&CALayer::transform, &CALayer::setTransform>("transform"),
    Property::of<&CALayer::zPosition, &CALayer::setZPosition>("zPosition"),
    Property::of<&CALayer::frame, &CALayer::setFrame>("frame"),
    Property::of<&CALayer::isGeometryFlipped, &CALayer::setGeometryFlipped>("geometryFlipped"),
    Property::of<&CALayer::autoresizingMask, &CALayer::setAutoresizingMask>("autoresizingMask"),
    Property::of<&CALayer::mask, &CALayer::setMask>("mask"),
    Property::of<&CALayer::backgroundColor, &CALayer::setBackgroundColor>("backgroundColor"),
    Property::of<&CALayer::contents, &CALayer::setContents>("contents"),
    Property::of<&CALayer::contentsScale, &CALayer::setContentsScale>("contentsScale"),
    Property::of<&CALayer::cornerRadius, &CALayer::setCornerRadius>("cornerRadius"),
    Property::of<&CALayer::maskedCorners, &CALayer::setMaskedCorners>("maskedCorners"),
    Property::of<&CALayer::borderWidth, &CALayer::setBorderWidth>("borderWidth"),
    Property::of<&CALayer::borderColor, &CALayer::setBorderColor>("borderColor"),
    Property::of<&CALayer::opacity, &CALayer::setOpacity>("opacity"),
    Property::of<&CALayer::isHidden, &CALayer::setHidden>("hidden"),
    Property::of<&CALayer::masksToBounds, &CALayer::setMasksToBounds>("masksToBounds"),
    Property::of<&CALayer::isOpaque, &CALayer::setOpaque>("opaque"),
    Property::of<&CALayer::shadowColor, &CALayer::setShadowColor>("shadowColor"),
    Property::of<&CALayer::shadowOpacity, &CALayer::setShadowOpacity>("shadowOpacity"),
    Property::of<&CALayer::shadowOffset, &CALayer::setShadowOffset>("shadowOffset"),
    Property::of<&CALayer::shadowRadius, &CALayer::setShadowRadius>("shadowRadius"),
    Property::of<&CALayer::shadowPath, &CALayer::setShadowPath>("shadowPath"),
    Property::of<&CALayer::shouldRasterize, &CALayer::setShouldRasterize>("shouldRasterize"),
    Property::of<&CALayer::rasterizationScale, &CALayer::setRasterizationScale>("rasterizationScale"),
    Property::of<&CALayer::needsDisplayOnBoundsChange, &CALayer::setNeedsDisplayOnBoundsChange>(
        "needsDisplayOnBoundsChange"),
    Property::of<&CALayer::name, &CALayer::setName>("name"),
};

}  // namespace

CAValue CALayer::value(std::string_view key) const {
  if (const auto* property = findProperty(properties, key)) return property->get(*this);
  if (!extras_) return {};
  const auto stored = extras_->storedValues.find(key);
  return stored == extras_->storedValues.end() ? CAValue() : stored->second;
}

void CALayer::setValue(const CAValue& value, std::string_view key) {
  if (const auto* property = findProperty(properties, key)) return property->set(*this, value);
  auto place = extras().storedValues.try_emplace(std::string(key)).first;
  // The action may store other values, which leaves references into the map valid.
  change(key, place->second, value, Effect::none);
}

}  // namespace bkuk
