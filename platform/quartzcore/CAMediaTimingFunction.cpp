#include "platform/quartzcore/CAMediaTimingFunction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace bkuk {

namespace {

struct Curve {
  std::string_view name;
  CGPoint first;
  CGPoint second;
};

constexpr std::array curves{
    Curve{kCAMediaTimingFunctionDefault, {0.25, 0.1}, {0.25, 1}},
    Curve{kCAMediaTimingFunctionLinear, {0, 0}, {1, 1}},
    Curve{kCAMediaTimingFunctionEaseIn, {0.42, 0}, {1, 1}},
    Curve{kCAMediaTimingFunctionEaseOut, {0, 0}, {0.58, 1}},
    Curve{kCAMediaTimingFunctionEaseInEaseOut, {0.42, 0}, {0.58, 1}},
};

const Curve& curveNamed(std::string_view name) {
  const auto found = std::ranges::find(curves, name, &Curve::name);
  return found == curves.end() ? curves.front() : *found;
}

CGFloat cutToUnit(CGFloat value) { return value > 0 ? std::min(value, 1.0) : 0; }

// One coordinate of the cubic whose ends are 0 and 1.
CGFloat cubic(CGFloat first, CGFloat second, CGFloat t) {
  const auto rest = 1 - t;
  return 3 * rest * rest * t * first + 3 * rest * t * t * second + t * t * t;
}

// x rises along the curve, so halving always finds the parameter; 40 steps exhaust what a pixel can show.
CGFloat parameterAt(CGFloat first, CGFloat second, CGFloat x) {
  CGFloat low = 0;
  CGFloat high = 1;
  for (int step = 0; step < 40; ++step) {
    const auto middle = (low + high) / 2;
    (cubic(first, second, middle) < x ? low : high) = middle;
  }
  return (low + high) / 2;
}

}  // namespace

CAMediaTimingFunction::CAMediaTimingFunction(std::string_view name)
    : first_(curveNamed(name).first), second_(curveNamed(name).second) {}

CAMediaTimingFunction::CAMediaTimingFunction(CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2)
    : first_{cutToUnit(x1), y1}, second_{cutToUnit(x2), y2} {}

CGFloat CAMediaTimingFunction::evaluate(CGFloat time) const {
  time = cutToUnit(time);
  if (time == 0 || time == 1) return time;
  return cubic(first_.y, second_.y, parameterAt(first_.x, second_.x, time));
}

bool CAMediaTimingFunction::isEqual(const NSObject* other) const {
  const auto* function = dynamic_cast<const CAMediaTimingFunction*>(other);
  return function && function->first_ == first_ && function->second_ == second_;
}

std::size_t CAMediaTimingFunction::hash() const {
  std::size_t hash = 0;
  for (const auto value : {first_.x, first_.y, second_.x, second_.y}) {
    hash = hash * 31 + std::hash<CGFloat>{}(value);
  }
  return hash;
}

}  // namespace bkuk
