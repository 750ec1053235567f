#include "platform/appkit/NSImageView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityRecord.h"

namespace bkuk {

namespace {

using Alignment = NSImageAlignment;

NSSize fitted(NSSize size, NSSize place, NSImageScaling scaling) {
  if (scaling == NSImageScaling::none) return size;
  if (scaling == NSImageScaling::axesIndependently) return place;
  const auto fitting = std::min(place.width / size.width, place.height / size.height);
  const auto factor = scaling == NSImageScaling::proportionallyDown ? std::min(fitting, 1.0) : fitting;
  return {size.width * factor, size.height * factor};
}

// Which share of the room that is left lies on the left.
CGFloat shareOnTheLeft(Alignment alignment) {
  switch (alignment) {
    case Alignment::left:
    case Alignment::topLeft:
    case Alignment::bottomLeft:
      return 0;
    case Alignment::right:
    case Alignment::topRight:
    case Alignment::bottomRight:
      return 1;
    default:
      return 0.5;
  }
}

CGFloat shareAbove(Alignment alignment) {
  switch (alignment) {
    case Alignment::top:
    case Alignment::topLeft:
    case Alignment::topRight:
      return 0;
    case Alignment::bottom:
    case Alignment::bottomLeft:
    case Alignment::bottomRight:
      return 1;
    default:
      return 0.5;
  }
}

}  // namespace

void NSImageView::didInit() {
  NSControl::didInit();
  setAccessibilityRole(NSAccessibilityImageRole);
}

bool NSImageView::isAccessibilityElement() const {
  return AccessibilityRecord::resolved(accessibilityRecord().isElement, !accessibilityLabel().empty());
}

void NSImageView::setImage(Ref<NSImage> image) {
  image_ = std::move(image);
  invalidateIntrinsicContentSize();
  setNeedsDisplay(true);
}

void NSImageView::setImageScaling(NSImageScaling scaling) {
  scaling_ = scaling;
  setNeedsDisplay(true);
}

void NSImageView::setImageAlignment(NSImageAlignment alignment) {
  alignment_ = alignment;
  setNeedsDisplay(true);
}

NSSize NSImageView::intrinsicContentSize() const {
  constexpr NSSize none{-1, -1};
  const auto image = this->image();
  return image ? image->size() : none;
}

void NSImageView::mouseDown(NSEvent& event) { NSView::mouseDown(event); }

// On whole device pixels, so that an image of the device's scale stays sharp.
NSRect NSImageView::placeFor(NSSize size) const {
  const auto place = bounds();
  const auto own = fitted(size, place.size, scaling_);
  const auto above = shareAbove(alignment_);
  const auto below = isFlipped() ? above : 1 - above;
  const auto window = this->window();
  const auto scale = window ? window->backingScaleFactor() : 1;
  const auto snapped = [scale](CGFloat value) { return std::round(value * scale) / scale; };
  return {snapped(place.minX() + (place.width() - own.width) * shareOnTheLeft(alignment_)),
          snapped(place.minY() + (place.height() - own.height) * below), own.width, own.height};
}

void NSImageView::draw(NSRect) {
  const auto image = this->image();
  if (!image) return;
  const auto size = image->size();
  if (!(size.width > 0) || !(size.height > 0)) return;
  image->draw(placeFor(size));
}

}  // namespace bkuk
