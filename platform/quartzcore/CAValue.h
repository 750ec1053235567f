#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/quartzcore/CATransform3D.h"

namespace bkuk {

/// The value of a layer's property when it is read and written by key: nothing, a Boolean, a number,
/// geometry, text, an object (colours, paths, contents, layers) or a list of numbers or objects.
using CAValue = std::variant<std::monostate, bool, double, CGPoint, CGSize, CGRect, CATransform3D,
                             std::string, Ref<NSObject>, std::vector<double>, std::vector<Ref<NSObject>>>;

}  // namespace bkuk
