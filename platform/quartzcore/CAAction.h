#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/foundation/NSObject.h"

namespace bkuk {

class CALayer;

/// What a layer runs when one of its properties has changed.
class CAAction : public NSObject {
 public:
  /// Called by the layer after the new value of the property `key` is stored.
  virtual void run(std::string_view key, CALayer& layer) = 0;
};

/// Actions by property name. An empty reference stands for "no action" and ends the search.
using CAActions = std::map<std::string, Ref<CAAction>, std::less<>>;

}  // namespace bkuk
