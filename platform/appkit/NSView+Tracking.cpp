// What a view knows of the pointer and of the ring around the keyboard's place.

#include "platform/appkit/NSView.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSTrackingArea.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"

namespace bkuk {

NSRect NSView::visibleRect() const {
  NSRect rect = convertRectTo(bounds(), nullptr);
  for (auto each = superview(); each; each = each->superview()) {
    rect = rect.intersection(each->convertRectTo(each->bounds(), nullptr));
  }
  return rect.isEmpty() ? NSRect() : convertRectFrom(rect, nullptr);
}

bool NSView::scrollToVisible(NSRect rect) {
  const auto parent = superview();
  return parent && parent->scrollToVisible(convertRectTo(rect, parent.get()));
}

// Tracking areas

void NSView::addTrackingArea(Ref<NSTrackingArea> area) {
  if (!area || std::ranges::find(trackingAreas_, area) != trackingAreas_.end()) return;
  if (const auto old = area->view_.lock()) old->removeTrackingArea(area);
  trackingAreas_.push_back(area);
  area->view_ = this;
  if (const auto window = this->window()) window->trackingAreaWasAdded(*this, *area);
}

void NSView::removeTrackingArea(const Ref<NSTrackingArea>& area) {
  const auto found = std::ranges::find(trackingAreas_, area);
  if (found == trackingAreas_.end()) return;
  const Ref<NSTrackingArea> keep = std::move(*found);
  trackingAreas_.erase(found);
  keep->view_ = nullptr;
  if (const auto window = this->window()) window->trackingAreaWasRemoved(*keep);
}

void NSView::markTrackingStale() {
  trackingIsStale_ = true;
  subtreeTrackingIsStale_ = true;
  for (auto each = superview(); each && !each->subtreeTrackingIsStale_; each = each->superview()) {
    each->subtreeTrackingIsStale_ = true;
  }
  if (const auto window = this->window()) window->setNeedsCommit();
}

// A view that lies elsewhere takes along all that it contains.
void NSView::updateTrackingInTree() {
  if (!subtreeTrackingIsStale_) return;
  struct Step {
    Ref<NSView> view;
    bool hasMoved;
  };
  std::vector<Step> waiting{{this, false}};
  while (!waiting.empty()) {
    const Step step = std::move(waiting.back());
    waiting.pop_back();
    auto& view = *step.view;
    const bool hasStaleBelow = std::exchange(view.subtreeTrackingIsStale_, false);
    const bool hasMoved = std::exchange(view.trackingIsStale_, false) || step.hasMoved;
    if (!hasMoved && !hasStaleBelow) continue;
    if (hasMoved) view.refreshTracking();
    for (auto each = view.subviews_.rbegin(); each != view.subviews_.rend(); ++each) {
      waiting.push_back({*each, hasMoved});
    }
  }
}

void NSView::refreshTracking() {
  const auto window = this->window();
  if (!window) return;
  for (const auto& area : trackingAreas_) window->trackingAreaHasMoved(*area);
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
