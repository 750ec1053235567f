#pragma once

#include <cstdint>

#include "BrenvikUIKit/interaction/BKUKInteractionState.h"
#include "bench/peer/common/Scene.h"
#include "platform/appkit/drawing/NSImage.h"

namespace bkuk::bench {

using peer::CheckState;

enum class MarkShape : std::uint8_t { box, circle };

inline constexpr double markSize = 18;

/// The mark of a check box or radio button in the application's present appearance. Stroked and filled once,
/// then kept as pixels that all controls share.
[[nodiscard]] Ref<NSImage> markImage(MarkShape shape, CheckState check, BKUKInteractionState state);

}  // namespace bkuk::bench
