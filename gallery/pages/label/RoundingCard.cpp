#include <string>
#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

namespace {

using Rule = BKUKLayoutRoundingRule;

constexpr std::pair<Rule, const char*> rules[] = {
    {Rule::none, "none"}, {Rule::even, "even"}, {Rule::odd, "odd"}};

// The brand's face is an odd number of points high in the first and an even one in the second, so that each
// rule has something to add.
constexpr double sizes[] = {14, 16};

std::string remarkOn(double natural, double rounded) {
  const auto height = pointsText(natural);
  return natural == rounded ? height + " high" : height + ", rounded to " + pointsText(rounded);
}

Ref<Specimen> makeRoundingSpecimen(double size, Rule rule, const char* name) {
  const auto label = BKUKLabel::label("Rounded " + pointsText(size), cardText(size));
  const double natural = label->intrinsicContentSize().height;
  label->setLayoutRoundingRule(rule);
  return make<Specimen>(make<LabelBox>(label), name, remarkOn(natural, label->intrinsicContentSize().height));
}

}  // namespace

Ref<Card> makeRoundingCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const double size : sizes) {
    for (const auto& [rule, name] : rules) specimens.push_back(makeRoundingSpecimen(size, rule, name));
  }
  return make<SpecimenCard>(
      "Rounding", "The text's box gets an even or an odd height; what is added moves the text down",
      SpecimenCard::Cells{.height = 60, .narrowest = 130, .maxColumns = 3}, std::move(specimens));
}

}  // namespace bkuk::gallery
