#include "gallery/cards/SpecimenCard.h"

#include <utility>

#include "gallery/cards/Grid.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

Grid grid(const SpecimenCard::Cells& cells, CGFloat width) {
  return {.width = width,
          .narrowest = cells.narrowest,
          .cellHeight = cells.height + Specimen::captionHeight,
          .gap = 18,
          .maxColumns = cells.maxColumns};
}

}  // namespace

SpecimenCard::SpecimenCard(std::string title, std::string remark, Cells cells,
                           std::vector<Ref<Specimen>> specimens)
    : Card(std::move(title), std::move(remark)), cells_(cells), specimens_(std::move(specimens)) {}

void SpecimenCard::didInit() {
  Card::didInit();
  for (const auto& specimen : specimens_) addSubview(specimen);
}

CGFloat SpecimenCard::contentHeight(CGFloat width) const {
  return grid(cells_, width).heightOf(specimens_.size());
}

void SpecimenCard::layoutContent(NSRect content) {
  const Grid cells = grid(cells_, content.width());
  for (std::size_t i = 0; i < specimens_.size(); ++i) {
    const NSRect cell = cells.cell(i).offsetBy(content.minX(), content.minY());
    specimens_[i]->setFrame(fromLeading(*this, cell));
  }
}

}  // namespace bkuk::gallery
