#pragma once

#include "bench/peer/common/Workload.h"

namespace peer {

// The workloads that need no toolkit; see docs/performance.md.

[[nodiscard]] Result readMarkup(int pieces);
[[nodiscard]] Result measureTexts();
[[nodiscard]] Result paintTexts();

[[nodiscard]] Result drawIcons();
[[nodiscard]] Result strokeIcons();
[[nodiscard]] Result paintFirstShadows();
[[nodiscard]] Result paintShadows();

}  // namespace peer
