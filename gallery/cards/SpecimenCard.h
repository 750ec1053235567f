#pragma once

#include "gallery/cards/Card.h"
#include "gallery/cards/Specimen.h"

namespace bkuk::gallery {

/// A card of specimens in a grid.
class SpecimenCard : public Card {
 public:
  struct Cells {
    CGFloat height = 0;     ///< points, of what a specimen shows
    CGFloat narrowest = 0;  ///< points
    std::size_t maxColumns = 1;
  };

  SpecimenCard(std::string title, std::string remark, Cells cells, std::vector<Ref<Specimen>> specimens);

 protected:
  void didInit() override;
  [[nodiscard]] CGFloat contentHeight(CGFloat width) const override;
  void layoutContent(NSRect content) override;

 private:
  Cells cells_;
  std::vector<Ref<Specimen>> specimens_;
};

}  // namespace bkuk::gallery
