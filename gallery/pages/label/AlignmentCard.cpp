#include <optional>
#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

using Alignment = NSTextAlignment;

using Direction = NSUserInterfaceLayoutDirection;

struct Sample {
  Alignment alignment;
  const char* name;
  const char* remark;
  std::optional<Direction> direction{};  // the application's when absent
};

constexpr Sample samples[] = {
    {Alignment::left, "left", "In every direction"},
    {Alignment::center, "center", "Each line in the middle"},
    {Alignment::right, "right", "In every direction"},
    {Alignment::natural, "natural, left to right", "Begins on the left", Direction::leftToRight},
    {Alignment::natural, "natural, right to left", "Begins on the right", Direction::rightToLeft},
    {Alignment::justified, "justified", "Edge to edge but the last line"}};

constexpr const char* paragraph =
    "The ferry leaves when the last car is on board, and no later than ten past nine.";

}  // namespace

Ref<Card> makeAlignmentCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const auto& sample : samples) {
    const auto label = BKUKLabel::label(paragraph, cardText(14).with({.alignment = sample.alignment}));
    if (sample.direction) label->setUserInterfaceLayoutDirection(*sample.direction);
    specimens.push_back(make<Specimen>(make<LabelBox>(label), sample.name, sample.remark));
  }
  return make<SpecimenCard>("Alignment", "A paragraph between the edges of its label",
                            SpecimenCard::Cells{.height = 104, .narrowest = 200, .maxColumns = 3},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
