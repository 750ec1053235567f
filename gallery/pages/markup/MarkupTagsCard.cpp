#include <string>
#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/markup/MarkupCards.h"
#include "gallery/pages/markup/MarkupStyles.h"

namespace bkuk::gallery {

namespace {

constexpr std::pair<const char*, const char*> remarks[] = {
    {"b", "Bold"}, {"i", "Light"}, {"big", "28 pt"}, {"link", "Accent, underlined"}, {"mark", "Background"}};

}  // namespace

Ref<Card> makeMarkupTagsCard() {
  const auto styles = markupStyles();
  std::vector<Ref<Specimen>> specimens;
  for (const auto& [tag, remark] : remarks) {
    const auto label = make<BKUKLabel>();
    label->setAttributedStringValue(make<NSAttributedString>("Havn", styles.at(tag).fontAttributes()));
    specimens.push_back(
        make<Specimen>(make<LabelBox>(label), "[" + std::string(tag) + "]", std::string(remark)));
  }
  return make<SpecimenCard>("Tags", "Each has a style of its own; what is in no tag has the default style",
                            SpecimenCard::Cells{.height = 56, .narrowest = 120, .maxColumns = 5},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
