#pragma once

#include "gallery/cards/Card.h"

namespace bkuk::gallery {

// The cards of the page of fonts.

/// A line in each role of the brand's typography.
[[nodiscard]] Ref<Card> makeRolesCard();
/// The faces of the four types in some sizes.
[[nodiscard]] Ref<Card> makeWeightsCard();
/// A large word with the font's metrics drawn over it.
[[nodiscard]] Ref<Card> makeMetricsCard();
/// The two styles of links in each interaction state.
[[nodiscard]] Ref<Card> makeLinkStatesCard();

}  // namespace bkuk::gallery
