#include "gallery/chrome/Scroller.h"

#include <algorithm>
#include <utility>

#include "gallery/chrome/Clicking.h"
#include "gallery/chrome/Direction.h"
#include "platform/appkit/NSKeyCode.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat lineStep = 48;
constexpr CGFloat edge = 12;  // left around what comes into sight by key

}  // namespace

Scroller::Scroller(Color background, KeyView keyView)
    : background_(std::move(background)), keyView_(keyView) {}

void Scroller::didInit() {
  Box::didInit();
  bar_ = make<ScrollBar>([this](CGFloat offset) { scrollTo(offset); });
  addSubview(bar_);
  showFocus(false);
}

void Scroller::showFocus(bool focused) {
  setLook({.fill = background_,
           .border = focused ? role(Role::accentHighContrast) : Color(),
           .borderWidth = 2,
           .clips = true});
}

bool Scroller::acceptsFirstResponder() const { return keyView_ == KeyView::whenScrolling && furthest() > 0; }

bool Scroller::becomeFirstResponder() {
  showFocus(!isClicking());
  return true;
}

bool Scroller::resignFirstResponder() {
  showFocus(false);
  return true;
}

void Scroller::setContent(Ref<NSView> content, HeightForWidth heightForWidth) {
  heightForWidth_ = std::move(heightForWidth);
  if (const auto old = std::exchange(content_, content)) old->removeFromSuperview();
  addSubview(content, NSViewOrdering::below, bar_.get());
  offset_ = 0;
  setNeedsLayout(true);
}

CGFloat Scroller::furthest() const { return std::max(0.0, contentHeight_ - bounds().height()); }

void Scroller::scrollTo(CGFloat offset) {
  const CGFloat next = std::clamp(offset, 0.0, furthest());
  if (next == std::exchange(offset_, next)) return;
  setNeedsLayout(true);
}

void Scroller::layout() {
  const NSSize size = bounds().size;
  contentHeight_ = content_ ? heightForWidth_(size.width) : 0;
  offset_ = std::clamp(offset_, 0.0, furthest());
  if (content_) content_->setFrame({0, -offset_, size.width, std::max(contentHeight_, size.height)});
  bar_->setFrame(fromLeading(*this, {size.width - ScrollBar::width, 0, ScrollBar::width, size.height}));
  bar_->show({.content = contentHeight_, .seen = size.height, .offset = offset_});
}

bool Scroller::scrollToVisible(NSRect rect) {
  const bool isAbove = rect.minY() < edge;
  const bool isBelow = rect.maxY() > bounds().height() - edge;
  if (isAbove == isBelow) return false;  // it shows, or is larger than what can show
  const CGFloat before = offset_;
  scrollTo(offset_ + (isAbove ? rect.minY() - edge : rect.maxY() + edge - bounds().height()));
  layoutSubtreeIfNeeded();  // now, so that it moves with the animation that this is asked in
  return offset_ != before;
}

void Scroller::scrollWheel(NSEvent& event) { scrollTo(offset_ - event.scrollingDeltaY()); }

void Scroller::keyDown(NSEvent& event) {
  if (furthest() == 0) return Box::keyDown(event);
  const CGFloat pageStep = std::max(lineStep, bounds().height() - lineStep);
  switch (event.keyCode()) {
    case NSKeyCode::up:
      return scrollTo(offset_ - lineStep);
    case NSKeyCode::down:
      return scrollTo(offset_ + lineStep);
    case NSKeyCode::pageUp:
      return scrollTo(offset_ - pageStep);
    case NSKeyCode::pageDown:
      return scrollTo(offset_ + pageStep);
    case NSKeyCode::home:
      return scrollTo(0);
    case NSKeyCode::end:
      return scrollTo(furthest());
    default:
      return Box::keyDown(event);
  }
}

}  // namespace bkuk::gallery
