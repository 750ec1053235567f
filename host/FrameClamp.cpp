#include "host/FrameClamp.h"

#include <algorithm>
#include <cmath>

#include "host/Window.h"

namespace bkuk::host {

namespace {

double clampedSide(double side) { return std::isnan(side) ? 1 : std::clamp(side, 1.0, Window::maxSide); }

double clampedOrigin(double coordinate) {
  return std::isnan(coordinate) ? 0 : std::clamp(coordinate, -Window::maxSide, Window::maxSide);
}

}  // namespace

Size clampedSize(Size size) { return {clampedSide(size.width), clampedSide(size.height)}; }

Rect clampedFrame(const Rect& frame) {
  const auto size = clampedSize({frame.width, frame.height});
  return {clampedOrigin(frame.x), clampedOrigin(frame.y), size.width, size.height};
}

}  // namespace bkuk::host
