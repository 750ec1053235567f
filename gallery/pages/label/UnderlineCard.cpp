#include <utility>

#include "gallery/cards/LabelBox.h"
#include "gallery/cards/LabelText.h"
#include "gallery/cards/SpecimenCard.h"
#include "gallery/pages/label/LabelCards.h"
#include "gallery/pages/label/WavyUnderline.h"

namespace bkuk::gallery {

namespace {

using Style = NSUnderlineStyle;

struct Sample {
  Style style;
  const char* name;
  const char* remark;
};

constexpr Style wavy = Style::single | Style::patternDashDotDot;

constexpr Sample samples[] = {{Style::single, "single", "In the colour of the text"},
                              {Style::thick, "thick", "Twice as thick"},
                              {Style::double_, "double", "Two lines"},
                              {Style::single | Style::byWord, "byWord", "Not below spaces"},
                              {Style::single | Style::patternDot, "patternDot", "With single"},
                              {Style::single | Style::patternDash, "patternDash", "With single"},
                              {Style::single | Style::patternDashDot, "patternDashDot", "With single"},
                              {wavy, "patternDashDotDot", "Drawn as a wave on this label"}};

Ref<BKUKLabel> makeUnderlined(Style style) {
  auto label = BKUKLabel::label("Grey jetty", cardText(18));
  label->setUnderline(style);
  return label;
}

void drawAsWave(BKUKLabel& label) {
  const auto manager = make<BKUKUnderlineDrawerManager>();
  manager->set(make<WavyUnderline>(), wavy);
  label.textLayoutManager()->setUnderlineDrawerManager(manager);
  label.setUnderlineColor(BKUKTheme::critical());
}

}  // namespace

Ref<Card> makeUnderlineCard() {
  std::vector<Ref<Specimen>> specimens;
  for (const auto& sample : samples) {
    const auto label = makeUnderlined(sample.style);
    if (sample.style == wavy) drawAsWave(*label);
    specimens.push_back(make<Specimen>(make<LabelBox>(label), sample.name, sample.remark));
  }
  return make<SpecimenCard>("Underlines", "Styles of the platform; a drawer can take over any of them",
                            SpecimenCard::Cells{.height = 48, .narrowest = 150, .maxColumns = 4},
                            std::move(specimens));
}

}  // namespace bkuk::gallery
