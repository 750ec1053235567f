#include "gallery/chrome/Scroller.h"

#include <algorithm>
#include <utility>

#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat thumbWidth = 5;
constexpr CGFloat thumbMargin = 4;
constexpr CGFloat shortestThumb = 32;
constexpr CGFloat lineStep = 48;
constexpr CGFloat edge = 12;  // left around what is scrolled into sight

constexpr std::uint16_t homeKey = 115;
constexpr std::uint16_t pageUpKey = 116;
constexpr std::uint16_t endKey = 119;
constexpr std::uint16_t pageDownKey = 121;
constexpr std::uint16_t downKey = 125;
constexpr std::uint16_t upKey = 126;

}  // namespace

Scroller::Scroller() = default;

void Scroller::didInit() {
  Box::didInit();
  thumb_ = make<Box>(Box::Look{.fill = role(Role::onBackgroundLight), .cornerRadius = thumbWidth / 2});
  addSubview(thumb_);
  showFocus(false);
}

void Scroller::showFocus(bool focused) {
  setLook({.fill = role(Role::background),
           .border = focused ? role(Role::accentHighContrast) : Color(),
           .borderWidth = 2,
           .clips = true});
}

bool Scroller::becomeFirstResponder() {
  showFocus(true);
  return true;
}

bool Scroller::resignFirstResponder() {
  showFocus(false);
  return true;
}

void Scroller::setPage(Ref<GalleryPage> page) {
  if (const auto old = std::exchange(page_, page)) old->removeFromSuperview();
  addSubview(page, NSViewOrdering::below, thumb_.get());
  offset_ = 0;
  setNeedsLayout(true);
}

CGFloat Scroller::furthest() const { return std::max(0.0, pageHeight_ - bounds().height()); }

void Scroller::scrollTo(CGFloat offset) {
  const CGFloat next = std::clamp(offset, 0.0, furthest());
  if (next == std::exchange(offset_, next)) return;
  setNeedsLayout(true);
}

void Scroller::layout() {
  const NSSize size = bounds().size;
  pageHeight_ = page_ ? page_->heightForWidth(size.width) : 0;
  offset_ = std::clamp(offset_, 0.0, furthest());
  if (page_) page_->setFrame({0, -offset_, size.width, std::max(pageHeight_, size.height)});
  thumb_->setHidden(furthest() <= 0);
  if (thumb_->isHidden()) return;
  const CGFloat track = size.height - 2 * thumbMargin;
  const CGFloat length = std::max(shortestThumb, track * size.height / pageHeight_);
  const CGFloat place = thumbMargin + (track - length) * offset_ / furthest();
  thumb_->setFrame(fromLeading(*this, {size.width - thumbWidth - thumbMargin, place, thumbWidth, length}));
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
  const CGFloat pageStep = std::max(lineStep, bounds().height() - lineStep);
  switch (event.keyCode()) {
    case upKey:
      return scrollTo(offset_ - lineStep);
    case downKey:
      return scrollTo(offset_ + lineStep);
    case pageUpKey:
      return scrollTo(offset_ - pageStep);
    case pageDownKey:
      return scrollTo(offset_ + pageStep);
    case homeKey:
      return scrollTo(0);
    case endKey:
      return scrollTo(furthest());
    default:
      return Box::keyDown(event);
  }
}

}  // namespace bkuk::gallery
