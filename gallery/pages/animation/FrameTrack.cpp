#include "gallery/pages/animation/FrameTrack.h"

#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat barHeight = 10;
constexpr CGFloat markTop = barHeight + 5;
constexpr CGFloat markHeight = 6;
constexpr CGFloat callWidth = 1.5;
constexpr CGFloat phaseWidth = 3;

NSRect barOf(const NSView& view) { return {0, 0, view.bounds().width(), barHeight}; }

}  // namespace

CGFloat FrameTrack::positionOf(std::uint32_t frame) const { return bounds().width() * frame / frames_.count; }

bool FrameTrack::calls(std::uint32_t frame) const {
  const bool isLast = frame == frames_.count && !frames_.isEndless;
  return isLast || (frame >= frames_.starting && frame % frames_.spacing == 0);
}

bool FrameTrack::hasPhase(std::uint32_t frame) const {
  const bool isMiddleOrLast = frame == frames_.count / 2 || frame == frames_.count;
  return frame == frames_.starting || (isMiddleOrLast && !frames_.isEndless);
}

void FrameTrack::showFrame(std::uint32_t frame) {
  frame_ = frame;
  placeFill();
}

void FrameTrack::placeFill() {
  BKUKDontAnimate(true, [this] {
    fill_->setFrame(fromLeading(*this, {0, 0, positionOf(frame_), barHeight}));
  });
}

void FrameTrack::draw(NSRect) {
  role(Role::onSurfaceExtraLight)()->setFill();
  NSBezierPath::roundedRect(barOf(*this), barHeight / 2, barHeight / 2)->fill();
  for (std::uint32_t frame = 1; frame <= frames_.count; ++frame) {
    if (hasPhase(frame)) {
      role(Role::accent)()->setFill();
      drawMark(frame, phaseWidth);
    } else if (calls(frame)) {
      role(Role::onSurfaceLight)()->setFill();
      drawMark(frame, callWidth);
    }
  }
}

void FrameTrack::drawMark(std::uint32_t frame, CGFloat width) const {
  const NSRect mark{positionOf(frame) - width, markTop, width, markHeight};
  NSBezierPath::roundedRect(fromLeading(*this, mark), width / 2, width / 2)->fill();
}

void FrameTrack::layout() { placeFill(); }

void FrameTrack::viewDidMoveToWindow() {
  if (!layer()) return;
  fill_->setCornerRadius(barHeight / 2);
  layer()->addSublayer(fill_);
}

void FrameTrack::viewDidChangeEffectiveAppearance() {
  BKUKDontAnimate(true, [this] { fill_->setBackgroundColor(role(Role::accent)()->cgColor()); });
}

}  // namespace bkuk::gallery
