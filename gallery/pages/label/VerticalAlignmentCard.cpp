#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

using Alignment = BKUKLabelVerticalAlignment;

struct Sample {
  Alignment alignment;
  const char* name;
  const char* remark;
};

constexpr Sample samples[] = {{Alignment::top, "top", "At the upper edge"},
                              {Alignment::center, "center", "In the middle, as at first"},
                              {Alignment::bottom, "bottom", "At the lower edge"}};

}  // namespace

Ref<Card> makeVerticalAlignmentCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const auto& sample : samples) {
    const auto label = BKUKLabel::label("Low tide", cardText(16));
    label->setVerticalAlignment(sample.alignment);
    specimens.push_back(make<Specimen>(make<LabelBox>(label), sample.name, sample.remark));
  }
  return make<SpecimenCard>("Vertical alignment", "Labels that are taller than their text",
                            SpecimenCard::Cells{.height = 88, .narrowest = 130, .maxColumns = 3},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
