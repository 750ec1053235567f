#include "gallery/pages/trigger/PulseStrip.h"

#include "gallery/chrome/Direction.h"
#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr double span = 3;   // seconds
constexpr double pause = 1;  // seconds after which the line starts anew
constexpr CGFloat padding = 20;
constexpr CGFloat markWidth = 3;
constexpr std::size_t mostMarks = 64;

}  // namespace

PulseStrip::PulseStrip()
    : Box({.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14}) {}

void PulseStrip::didInit() {
  Box::didInit();
  for (int i = 0; i <= static_cast<int>(span); ++i) {
    seconds_.push_back(make<Box>(Box::Look{.fill = role(Role::onSurfaceLight)}));
    addSubview(seconds_.back());
  }
}

void PulseStrip::mark(double time) {
  const bool startsAnew = time - last_ > pause || time - start_ > span || moments_.size() == mostMarks;
  last_ = time;
  if (startsAnew) {
    start_ = time;
    moments_.clear();
    for (const auto& box : std::exchange(marks_, {})) box->removeFromSuperview();
  }
  moments_.push_back(time - start_);
  marks_.push_back(make<Box>(Box::Look{.fill = role(Role::accent), .cornerRadius = markWidth / 2}));
  addSubview(marks_.back());
  setNeedsLayout(true);
}

void PulseStrip::layout() {
  const CGFloat width = bounds().width() - 2 * padding;
  const CGFloat middle = bounds().height() / 2;
  for (std::size_t i = 0; i < seconds_.size(); ++i) {
    const CGFloat place = padding + width * static_cast<CGFloat>(i) / span;
    seconds_[i]->setFrame(fromLeading(*this, {place - 0.5, middle - 20, 1, 40}));
  }
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const CGFloat place = padding + width * moments_[i] / span;
    marks_[i]->setFrame(fromLeading(*this, {place - markWidth / 2, middle - 12, markWidth, 24}));
  }
}

}  // namespace bkuk::gallery
