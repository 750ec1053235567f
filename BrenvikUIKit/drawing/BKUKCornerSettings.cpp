#include "BrenvikUIKit/drawing/BKUKCornerSettings.h"

#include <algorithm>

namespace bkuk {

CGFloat BKUKCornerSettings::radius(const CGRect& forFrame) const {
  if (type == RadiusType::absolute) return value;
  return value * std::min(forFrame.width(), forFrame.height());
}

}  // namespace bkuk
