#include <string>
#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

constexpr double spacings[] = {-0.5, 0, 1.5, 4};
constexpr double lineHeights[] = {0, 24, 32};

constexpr const char* paragraph = "The light on the outer rock blinks twice, and waits.";

}  // namespace

Ref<Card> makeLetterSpacingCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const double spacing : spacings) {
    const auto label = BKUKLabel::label("Beacon", cardText(17));
    label->setLetterSpacing(spacing);
    specimens.push_back(make<Specimen>(make<LabelBox>(label), pointsText(spacing), "After each letter"));
  }
  return make<SpecimenCard>("Letter spacing", "Added to what the face leaves between its letters",
                            SpecimenCard::Cells{.height = 48, .narrowest = 150, .maxColumns = 4},
                            std::move(specimens));
}

Ref<Card> makeLineHeightCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const double height : lineHeights) {
    const auto label = BKUKLabel::label(paragraph, cardText(14));
    if (height > 0) label->setLineHeight(height);
    specimens.push_back(make<Specimen>(make<LabelBox>(label), height > 0 ? pointsText(height) : "Natural",
                                       height > 0 ? "For each line at least" : "As the face asks"));
  }
  return make<SpecimenCard>("Line height", "A paragraph with lines of at least that height",
                            SpecimenCard::Cells{.height = 116, .narrowest = 200, .maxColumns = 3},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
