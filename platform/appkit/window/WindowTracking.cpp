#include "platform/appkit/window/WindowTracking.h"

#include <algorithm>
#include <cmath>
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
  entries_.push_back({.box = {}, .area = &area, .isInside = false});
  area.view_ = &view;
  if (area.has(NSTrackingMouseMoved)) ++moveListenerCount_;
  updateRect(area);
  auto& entry = entries_.back();
  // Also where the area is not active: its owner may go by the place alone, and hears of the exit then.
  entry.isInside =
      area.has(NSTrackingAssumeInside) || (pointer_.isInWindow && entry.box.contains(pointer_.location));
  groupsAreStale_ = true;
}

void WindowTracking::remove(NSTrackingArea& area) {
  const auto place = std::exchange(area.place_, NSTrackingArea::nowhere);
  if (place == NSTrackingArea::nowhere) return;
  if (area.has(NSTrackingMouseMoved)) --moveListenerCount_;
  entries_[place] = entries_.back();
  entries_.pop_back();
  if (place < entries_.size()) entries_[place].area->place_ = place;
  groupsAreStale_ = true;
}

void WindowTracking::updateRect(const NSTrackingArea& area) {
  const auto view = area.view_.lock();
  if (!view || area.place_ == NSTrackingArea::nowhere) return;
  const NSRect rect = baseRectOf(area, *view);
  entries_[area.place_].box = {rect.minX(), rect.minY(), rect.maxX(), rect.maxY()};
  groupsAreStale_ = true;
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

// What is not a number does not spoil the box of its neighbours.
void WindowTracking::Box::add(const Box& other) {
  minX = std::fmin(minX, other.minX);
  minY = std::fmin(minY, other.minY);
  maxX = std::fmax(maxX, other.maxX);
  maxY = std::fmax(maxY, other.maxY);
}

void WindowTracking::makeGroups() {
  if (!std::exchange(groupsAreStale_, false)) return;
  groups_.clear();
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const auto& entry = entries_[i];
    if (i % groupLength == 0) groups_.push_back({entry.box, 0});
    groups_.back().box.add(entry.box);
    groups_.back().insideCount += entry.isInside;
  }
}

void WindowTracking::collect(Areas& exited, Areas& entered) {
  makeGroups();
  const NSPoint location = pointer_.isInWindow ? pointer_.location : farOutside;
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    auto& group = groups_[i];
    if (group.insideCount == 0 && !group.box.contains(location)) continue;
    const std::size_t end = std::min((i + 1) * groupLength, entries_.size());
    for (std::size_t next = i * groupLength; next < end; ++next) {
      auto& entry = entries_[next];
      if (entry.isInside || entry.box.contains(location)) collect(entry, group, exited, entered);
    }
  }
}

void WindowTracking::collect(Entry& entry, Group& group, Areas& exited, Areas& entered) {
  auto& area = *entry.area;
  const bool isInside = isUnderPointer(entry);
  if (isInside == entry.isInside) return;
  const bool waitsForRelease = pointer_.isButtonDown && !area.has(NSTrackingEnabledDuringMouseDrag);
  if (isInside && waitsForRelease) return;
  entry.isInside = isInside;
  group.insideCount += isInside ? 1 : -1;
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
  for (const auto& entry : entries_) {
    if (entry.isInside && entry.area->has(NSTrackingMouseMoved)) areas.push_back(entry.area);
  }
  for (const auto& area : areas) {
    const auto owner = area->owner();
    if (owner && area->place_ != NSTrackingArea::nowhere) owner->mouseMoved(event);
  }
}

}  // namespace bkuk
