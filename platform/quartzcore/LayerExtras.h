#pragma once

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

    /// Seconds since the start; one that waits stands at its start.
    [[nodiscard]] double elapsed(double now) const { return start ? now - *start : 0; }
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
