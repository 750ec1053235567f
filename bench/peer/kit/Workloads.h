#pragma once

#include "bench/peer/common/Workload.h"

namespace bkuk::bench {

using peer::Result;

// The workloads by what they are about; see docs/performance.md.

[[nodiscard]] Result create();
[[nodiscard]] Result createWithoutConstraints();
[[nodiscard]] Result showControls();
[[nodiscard]] Result repaintControls();
[[nodiscard]] Result composeControls();
[[nodiscard]] Result hover();
[[nodiscard]] Result changeAppearance();
[[noreturn]] void start();

[[nodiscard]] Result readMarkup(int pieces);
[[nodiscard]] Result measureLabels();
[[nodiscard]] Result repaintLabels();

[[nodiscard]] Result animate();

[[nodiscard]] Result drawIcons();
[[nodiscard]] Result strokeIcons();
[[nodiscard]] Result showShadows();
[[nodiscard]] Result repaintShadows();

}  // namespace bkuk::bench
