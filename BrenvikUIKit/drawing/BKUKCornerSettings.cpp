#include "BrenvikUIKit/drawing/BKUKCornerSettings.h"

#include <algorithm>

namespace bkuk {

CGFloat BKUKCornerSettings::radius(const CGRect& forFrame) const {
  if (type == RadiusType::absolute) return value;
  return value * std::min(forFrame.size.width, forFrame.size.height);
}

}  // namespace bkuk
