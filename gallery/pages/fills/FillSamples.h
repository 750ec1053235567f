#pragma once

#include <vector>

#include "gallery/cards/Specimen.h"

namespace bkuk::gallery {

// The specimens of the page about fills, in rows of four.

[[nodiscard]] std::vector<Ref<Specimen>> makeFillSpecimens();
[[nodiscard]] std::vector<Ref<Specimen>> makeCornerSpecimens();
[[nodiscard]] std::vector<Ref<Specimen>> makeShadowSpecimens();
[[nodiscard]] std::vector<Ref<Specimen>> makeDirectionSpecimens();

/// The gradient that the specimens of directions show.
[[nodiscard]] BKUKLinearGradientSettings directedGradient(
    const BKUKLinearGradientSettings::Directions& direction);

}  // namespace bkuk::gallery
