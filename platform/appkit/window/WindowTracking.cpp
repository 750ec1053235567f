#include "platform/appkit/window/WindowTracking.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/window/ViewOrder.h"

namespace bkuk {

namespace {

constexpr NSPoint farOutside{-1e6, -1e6};

NSRect baseRectOf(const NSTrackingArea& area, const NSView& view) {
  const NSRect rect = area.has(NSTrackingInVisibleRect) ? view.visibleRect() : area.rect();
  return view.convertRectTo(rect, nullptr);
}

}  // namespace

void WindowTracking::add(NSView& view, NSTrackingArea& area) {
  area.place_ = entries_.size();
  entries_.push_back({.box = {}, .area = &area});
  boxes_.append({});
  area.view_ = &view;
  if (area.has(NSTrackingMouseMoved)) ++moveListenerCount_;
  updateRect(area);
  auto& entry = entries_.back();
  // Also where the area is not active: its owner may go by the place alone, and hears of the exit then.
  setInside(entry, area.has(NSTrackingAssumeInside) ||
                       (pointer_.isInWindow && entry.box.contains(pointer_.location)));
}

void WindowTracking::remove(NSTrackingArea& area) {
  if (area.place_ == NSTrackingArea::nowhere) return;
  setInside(entries_[area.place_], false);
  const auto place = std::exchange(area.place_, NSTrackingArea::nowhere);
  if (area.has(NSTrackingMouseMoved)) --moveListenerCount_;
  entries_[place] = entries_.back();
  entries_.pop_back();
  if (place < entries_.size()) {
    entries_[place].area->place_ = place;
    boxes_.set(place, boxes_[entries_.size()]);
  }
  boxes_.truncate(entries_.size());
}

void WindowTracking::updateRect(const NSTrackingArea& area) {
  const auto view = area.view_.lock();
  if (!view || area.place_ == NSTrackingArea::nowhere) return;
  const NSRect rect = baseRectOf(area, *view);
  auto& box = entries_[area.place_].box;
  box = {rect.minX(), rect.minY(), rect.maxX(), rect.maxY()};
  boxes_.set(area.place_, box.whole());
}

// What is not a number holds no point, and must not spoil the box of its neighbours.
BoxTree<CGFloat>::Box WindowTracking::Box::whole() const {
  const bool isSomewhere = minX <= maxX && minY <= maxY;
  return isSomewhere ? BoxTree<CGFloat>::Box{minX, minY, maxX, maxY} : BoxTree<CGFloat>::Box();
}

void WindowTracking::setInside(Entry& entry, bool isInside) {
  if (isInside == entry.isInside()) return;
  if (isInside) {
    entry.insideAt = inside_.size();
    inside_.push_back(entry.area);
    return;
  }
  const auto at = std::exchange(entry.insideAt, NSTrackingArea::nowhere);
  auto* last = inside_.back();
  inside_.pop_back();
  if (at == inside_.size()) return;
  inside_[at] = last;
  entries_[last->place_].insideAt = at;
}

bool WindowTracking::isActive(const NSTrackingArea& area) const {
  const auto view = area.view_.lock();
  if (!view || view->isHiddenOrHasHiddenAncestor()) return false;
  if (area.has(NSTrackingActiveAlways)) return true;
  if (area.has(NSTrackingActiveInActiveApp)) return NSApplication::shared().isActive();
  if (area.has(NSTrackingActiveInKeyWindow)) return window_.isKeyWindow();
  return window_.firstResponder() == view;
}

bool WindowTracking::isUnderPointer(const Entry& entry) const {
  return pointer_.isInWindow && entry.box.contains(pointer_.location) && isActive(*entry.area);
}

// In the order of the list: those at the pointer, and those where it was.
void WindowTracking::collect(Areas& exited, Areas& entered) {
  const NSPoint at = pointer_.isInWindow ? pointer_.location : farOutside;
  concerned_.clear();
  for (const auto* area : inside_) concerned_.push_back(area->place_);
  for (auto place = boxes_.lastTouching({at.x, at.y, at.x, at.y}, entries_.size());
       place != BoxTree<CGFloat>::none; place = boxes_.lastTouching({at.x, at.y, at.x, at.y}, place)) {
    if (entries_[place].box.contains(at) && !entries_[place].isInside()) concerned_.push_back(place);
  }
  std::ranges::sort(concerned_);
  for (const auto place : concerned_) collect(entries_[place], exited, entered);
}

void WindowTracking::collect(Entry& entry, Areas& exited, Areas& entered) {
  auto& area = *entry.area;
  const bool isInside = isUnderPointer(entry);
  if (isInside == entry.isInside()) return;
  const bool waitsForRelease = pointer_.isButtonDown && !area.has(NSTrackingEnabledDuringMouseDrag);
  if (isInside && waitsForRelease) return;
  setInside(entry, isInside);
  (isInside ? entered : exited).push_back(&area);
}

void WindowTracking::follow(const Pointer& pointer) {
  pointer_ = pointer;
  const Ref<NSWindow> keepWindow(&window_);
  // A report may end in another move, so the lists belong to this call; it gives their memory back.
  auto exited = std::exchange(spareExited_, {});
  auto entered = std::exchange(spareEntered_, {});
  collect(exited, entered);
  const auto areaIsBehind = [](const auto& a, const auto& b) {
    const auto first = a->view_.lock();
    const auto second = b->view_.lock();
    return first && second && viewIsBehind(*first, *second);
  };
  if (exited.size() > 1) std::stable_sort(exited.rbegin(), exited.rend(), areaIsBehind);
  if (entered.size() > 1) std::stable_sort(entered.begin(), entered.end(), areaIsBehind);
  for (const auto& area : exited) send(NSEventType::mouseExited, *area);
  for (const auto& area : entered) send(NSEventType::mouseEntered, *area);
  for (const auto& area : entered) send(NSEventType::cursorUpdate, *area);
  exited.clear();
  entered.clear();
  spareExited_ = std::move(exited);
  spareEntered_ = std::move(entered);
}

void WindowTracking::send(NSEventType type, const NSTrackingArea& area) const {
  const auto wanted =
      type == NSEventType::cursorUpdate ? NSTrackingCursorUpdate : NSTrackingMouseEnteredAndExited;
  const auto view = area.view_.lock();
  // Taken away meanwhile, or hidden: neither is told.
  if (area.place_ == NSTrackingArea::nowhere || !area.has(wanted) || !view) return;
  if (view->isHiddenOrHasHiddenAncestor()) return;
  const auto event = make<NSEvent>(NSEvent::Fields{
      .type = type,
      .window = &window_,
      .locationInWindow = pointer_.location,
      .modifierFlags = pointer_.modifierFlags,
      .timestamp = pointer_.timestamp,
      .trackingArea = const_cast<NSTrackingArea*>(&area),
  });
  NSApplication::shared().sendEvent(*event);
}

void WindowTracking::deliver(NSEvent& event) {
  const auto area = as<NSTrackingArea>(event.trackingArea());
  const auto owner = area ? area->owner() : nullptr;
  if (!owner) return;
  switch (event.type()) {
    case NSEventType::mouseEntered:
      return owner->mouseEntered(event);
    case NSEventType::mouseExited:
      return owner->mouseExited(event);
    case NSEventType::cursorUpdate:
      return owner->cursorUpdate(event);
    default:
      return;
  }
}

void WindowTracking::sendMoved(NSEvent& event) {
  if (moveListenerCount_ == 0) return;
  Areas areas;
  for (auto* area : inside_) {
    if (area->has(NSTrackingMouseMoved)) areas.push_back(area);
  }
  std::ranges::sort(areas, {}, [](const auto& area) { return area->place_; });
  for (const auto& area : areas) {
    const auto owner = area->owner();
    if (owner && area->place_ != NSTrackingArea::nowhere) owner->mouseMoved(event);
  }
}

}  // namespace bkuk
