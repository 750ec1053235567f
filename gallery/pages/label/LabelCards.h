#pragma once

#include "gallery/cards/Card.h"

namespace bkuk::gallery {

// The cards of the page of labels.

/// What rounding adds to the height of the text.
[[nodiscard]] Ref<Card> makeRoundingCard();
/// Labels taller than their text.
[[nodiscard]] Ref<Card> makeVerticalAlignmentCard();
/// Paragraphs in each alignment.
[[nodiscard]] Ref<Card> makeAlignmentCard();
/// What becomes of lines that are too long.
[[nodiscard]] Ref<Card> makeLineBreakCard();
/// Texts that constraints set on one baseline.
[[nodiscard]] Ref<Card> makeBaselineCard();
/// The platform's underlines, and one that draws itself.
[[nodiscard]] Ref<Card> makeUnderlineCard();
/// Letter spacing.
[[nodiscard]] Ref<Card> makeLetterSpacingCard();
/// The least height of lines.
[[nodiscard]] Ref<Card> makeLineHeightCard();
/// A text with links, and a list of those that were followed.
[[nodiscard]] Ref<Card> makeTextLinksCard();

}  // namespace bkuk::gallery
