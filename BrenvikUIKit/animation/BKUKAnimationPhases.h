#pragma once

namespace bkuk {

/// The moments of an animation that its owner is told of.
enum class BKUKAnimationPhases { start, middle, finish };

}  // namespace bkuk
