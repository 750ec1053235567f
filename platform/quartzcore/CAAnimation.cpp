#include "platform/quartzcore/CAAnimation.h"

#include <algorithm>
#include <cmath>

#include "platform/quartzcore/CALayer.h"

namespace bkuk {

namespace {

CGFloat positiveOrZero(CGFloat value) { return value > 0 ? value : 0; }

bool showsBefore(CAMediaTimingFillMode mode) {
  return mode == CAMediaTimingFillMode::backwards || mode == CAMediaTimingFillMode::both;
}

bool showsAfter(CAMediaTimingFillMode mode) {
  return mode == CAMediaTimingFillMode::forwards || mode == CAMediaTimingFillMode::both;
}

}  // namespace

CGFloat CAAnimation::runLength() const {
  return positiveOrZero(timing_.duration) * (timing_.autoreverses ? 2 : 1);
}

CGFloat CAAnimation::activeLength() const {
  const auto run = runLength();
  const auto count = timing_.repeatCount > 0 ? timing_.repeatCount : 1;
  return run > 0 ? run * count : 0;
}

CGFloat CAAnimation::progressWithin(CGFloat active) const {
  const auto run = runLength();
  if (!(run > 0) || !std::isfinite(active)) return timing_.autoreverses ? 0 : 1;
  auto inRun = std::fmod(active, run);
  const bool isAtEndOfARun = inRun == 0 && active > 0;
  if (isAtEndOfARun) inRun = run;
  auto fraction = inRun / positiveOrZero(timing_.duration);
  if (fraction > 1) fraction = 2 - fraction;
  return timing_.function ? timing_.function->evaluate(fraction) : fraction;
}

std::optional<CGFloat> CAAnimation::progress(CGFloat elapsed) const {
  const auto time = elapsed * timing_.speed;
  if (time < 0 && !showsBefore(timing_.fillMode)) return std::nullopt;
  if (hasEnded(elapsed) && !showsAfter(timing_.fillMode)) return std::nullopt;
  return progressWithin(std::clamp(positiveOrZero(time), 0.0, activeLength()));
}

bool CAAnimation::hasEnded(CGFloat elapsed) const {
  const auto time = elapsed * timing_.speed;
  return std::isnan(time) || time >= activeLength();
}

void CAAnimation::run(std::string_view key, CALayer& layer) { layer.add(*this, key); }

}  // namespace bkuk
