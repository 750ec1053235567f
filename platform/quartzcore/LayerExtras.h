#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/quartzcore/CAAnimation.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CompletionGroup.h"

namespace bkuk {

/// What only few layers have.
struct CALayer::Extras {
  struct Running {
    std::string key;
    Ref<CAAnimation> animation;
    std::optional<double> start;  // none until the next commit
    std::shared_ptr<CompletionGroup> completion;

    /// Seconds since the start. One that waits stands at its start, as does one that started after the frame
    /// which is shown.
    [[nodiscard]] double elapsed(double now) const {
      if (!start) return 0;
      return animation->beginTime() == 0 ? std::max(0.0, now - *start) : now - *start;
    }
  };

  CAActions actions;
  CAActions styleActions;
  std::map<std::string, CAValue, std::less<>> storedValues;
  std::vector<Running> animations;
  Ref<CALayer> presentation;
  double presentationTime = 0;
  Weak<CALayer> model;     // of a presentation copy
  bool isStepped = false;  // by the animator
};

}  // namespace bkuk
