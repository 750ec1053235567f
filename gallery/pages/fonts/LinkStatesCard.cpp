#include <string>
#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/fonts/FontCards.h"

namespace bkuk::gallery {

namespace {

using State = BKUKInteractionState;

constexpr std::pair<State, const char*> states[] = {{State::normal, "normal"},
                                                    {State::hover, "hover"},
                                                    {State::pressed, "pressed"},
                                                    {State::disabled, "disabled"}};

void addSpecimens(const BKUKStatefulFonts& fonts, const char* name, std::vector<Ref<Specimen>>& specimens) {
  for (const auto& [state, remark] : states) {
    const auto label = make<BKUKLabel>();
    label->setAttributedStringValue(
        make<NSAttributedString>("Read the terms", fonts[state].fontAttributes()));
    specimens.push_back(make<Specimen>(make<LabelBox>(label), name, remark));
  }
}

}  // namespace

Ref<Card> makeLinkStatesCard() {
  std::vector<Ref<Specimen>> specimens;
  addSpecimens(BKUKStatefulFonts::hyperlinkPrimary(), "hyperlinkPrimary", specimens);
  addSpecimens(BKUKStatefulFonts::hyperlinkSecondary(), "hyperlinkSecondary", specimens);
  return make<SpecimenCard>("Links", "The styles that come with the kit, in each interaction state",
                            SpecimenCard::Cells{.height = 44, .narrowest = 150, .maxColumns = 4},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
