#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

using Mode = NSLineBreakMode;

struct Sample {
  Mode mode;
  const char* name;
  const char* remark;
};

constexpr Sample samples[] = {{Mode::wordWrapping, "wordWrapping", "Goes on below, word by word"},
                              {Mode::charWrapping, "charWrapping", "Goes on below, letter by letter"},
                              {Mode::clipping, "clipping", "Ends at the edge"},
                              {Mode::truncatingHead, "truncatingHead", "Keeps the end"},
                              {Mode::truncatingMiddle, "truncatingMiddle", "Keeps both ends"},
                              {Mode::truncatingTail, "truncatingTail", "Keeps the beginning"}};

}  // namespace

Ref<Card> makeLineBreakCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const auto& sample : samples) {
    const auto label = BKUKLabel::label("Timetable of the northern coast, summer.pdf", cardText(14));
    label->setLineBreakMode(sample.mode);
    specimens.push_back(make<Specimen>(make<LabelBox>(label), sample.name, sample.remark));
  }
  return make<SpecimenCard>("Line breaks", "What becomes of a line that is wider than its label",
                            SpecimenCard::Cells{.height = 60, .narrowest = 200, .maxColumns = 3},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
