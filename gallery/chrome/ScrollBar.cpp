#include "gallery/chrome/ScrollBar.h"

#include <algorithm>
#include <utility>

#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat margin = 3;
constexpr CGFloat thickness = 5;
constexpr CGFloat activeThickness = 8;
constexpr CGFloat shortestThumb = 32;

}  // namespace

void ScrollBar::didInit() {
  NSView::didInit();
  thumb_ = make<Box>();
  addSubview(thumb_);
  addTrackingArea(make<NSTrackingArea>(
      NSRect(), NSTrackingMouseEnteredAndExited | NSTrackingActiveInActiveApp | NSTrackingInVisibleRect,
      this));
  setHidden(true);
  showActivity();
}

void ScrollBar::show(const Extent& extent) {
  if (extent == std::exchange(extent_, extent)) return;
  setHidden(furthest() <= 0);
  isPointedAt_ = isPointedAt_ && !isHidden();
  showActivity();
}

void ScrollBar::showActivity() {
  thumb_->setLook({.fill = role(isActive() ? Role::onBackgroundDisabled : Role::onBackgroundLight),
                   .cornerRadius = (isActive() ? activeThickness : thickness) / 2});
  setNeedsLayout(true);
}

CGFloat ScrollBar::thumbLength() const {
  const CGFloat track = bounds().height() - 2 * margin;
  return std::min(track, std::max(shortestThumb, track * extent_.seen / extent_.content));
}

CGFloat ScrollBar::travel() const { return std::max(1.0, bounds().height() - 2 * margin - thumbLength()); }

void ScrollBar::layout() {
  if (isHidden()) return;
  const CGFloat thick = isActive() ? activeThickness : thickness;
  const CGFloat top = margin + travel() * extent_.offset / furthest();
  thumb_->setFrame(fromLeading(*this, {bounds().width() - margin - thick, top, thick, thumbLength()}));
}

Ref<NSView> ScrollBar::hitTest(NSPoint point) { return NSView::hitTest(point) ? this : nullptr; }

void ScrollBar::mouseEntered(NSEvent&) {
  isPointedAt_ = true;
  showActivity();
}

void ScrollBar::mouseExited(NSEvent&) {
  isPointedAt_ = false;
  showActivity();
}

void ScrollBar::mouseDown(NSEvent& event) {
  const CGFloat y = convertPointFrom(event.locationInWindow(), nullptr).y;
  const NSRect thumb = thumb_->frame();
  if (y < thumb.minY()) return moved_(extent_.offset - extent_.seen);
  if (y >= thumb.maxY()) return moved_(extent_.offset + extent_.seen);
  isDragged_ = true;
  grip_ = y - thumb.minY();
  showActivity();
}

void ScrollBar::mouseDragged(NSEvent& event) {
  if (!isDragged_) return;
  const CGFloat y = convertPointFrom(event.locationInWindow(), nullptr).y;
  moved_(furthest() * (y - grip_ - margin) / travel());
}

void ScrollBar::mouseUp(NSEvent&) {
  isDragged_ = false;
  showActivity();
}

}  // namespace bkuk::gallery
