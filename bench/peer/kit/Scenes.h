#pragma once

#include <memory>

#include "bench/peer/kit/Stage.h"

namespace bkuk::bench {

/// A window full of check boxes, radio buttons, progress bars and labels, not shown yet.
[[nodiscard]] std::unique_ptr<Stage> makeControls();
/// One full of labels.
[[nodiscard]] std::unique_ptr<Stage> makeLabels();

}  // namespace bkuk::bench
