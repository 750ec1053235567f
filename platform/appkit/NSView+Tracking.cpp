// What a view knows of the pointer and of the ring around the keyboard's place.

#include "platform/appkit/NSView.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSView+MarkedWalk.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"

namespace bkuk {

NSRect NSView::visibleRect() const {
  NSRect rect = bounds();
  Placement placement;  // of the own space in that of `each`
  for (const NSView* each = this;;) {
    const NSView* parent = each->superview_.peek();
    if (!parent) break;
    const Placement outer = each->placementInSuperview();
    placement = {outer.apply(placement.origin), outer.up * placement.up};
    rect = outer.apply(rect).intersection(parent->bounds());
    each = parent;
  }
  return rect.isEmpty() ? NSRect() : placement.undo(rect);
}

bool NSView::scrollToVisible(NSRect rect) {
  const auto parent = superview();
  return parent && parent->scrollToVisible(convertRectTo(rect, parent.get()));
}

// Tracking areas

const std::vector<Ref<NSTrackingArea>>& NSView::trackingAreas() const { return extras().trackingAreas; }

void NSView::addTrackingArea(Ref<NSTrackingArea> area) {
  if (!area || area->view_.refersTo(this)) return;
  if (const auto old = area->view_.lock()) old->removeTrackingArea(area);
  ownExtras().trackingAreas.push_back(area);
  area->view_ = this;
  if (const auto window = this->window()) window->trackingAreaWasAdded(*this, *area);
}

void NSView::removeTrackingArea(const Ref<NSTrackingArea>& area) {
  if (!area || !area->view_.refersTo(this)) return;
  auto& areas = extras_->trackingAreas;
  const auto found = std::ranges::find(areas, area);
  const Ref<NSTrackingArea> keep = std::move(*found);
  areas.erase(found);
  keep->view_ = nullptr;
  if (const auto window = this->window()) window->trackingAreaWasRemoved(*keep);
}

void NSView::markTrackingStale() {
  trackingIsStale_ = true;
  markUpwards(&Subviews::toTrack, &NSView::subtreeTrackingIsStale_);
  if (auto* window = window_.peek()) window->placesDidChange();
}

// A view that lies elsewhere takes along all that it contains.
void NSView::updateTrackingInTree() {
  if (!subtreeTrackingIsStale_) return;
  MarkedWalk walk(&Subviews::toTrack);
  for (Ref<NSView> view(this); view; view = walk.next()) {
    const bool hasStaleBelow = view->takeMark(&Subviews::toTrack, &NSView::subtreeTrackingIsStale_);
    const bool hasMoved = std::exchange(view->trackingIsStale_, false) || walk.isWhole();
    if (hasMoved) {
      view->refreshTracking();
      walk.enterWholly(*view);
    } else if (hasStaleBelow) {
      walk.enter(*view);
    }
  }
}

void NSView::refreshTracking() {
  const auto window = this->window();
  if (!window) return;
  for (const auto& area : trackingAreas()) window->trackingAreaHasMoved(*area);
  if (hasFocusRing_) noteFocusRingMaskChanged();
  updateTrackingAreas();
}

// The focus ring

void NSView::setFocusRingType(NSFocusRingType type) {
  focusRingType_ = type;
  noteFocusRingMaskChanged();
}

void NSView::drawFocusRingMask() {
  if (const auto context = NSGraphicsContext::current()) context->cgContext()->fill(bounds());
}

void NSView::noteFocusRingMaskChanged() {
  if (const auto window = this->window()) window->focusRingDidChange(*this);
}

}  // namespace bkuk
