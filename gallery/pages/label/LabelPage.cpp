#include "gallery/pages/label/LabelPage.h"

#include "gallery/pages/label/LabelCards.h"

namespace bkuk::gallery {

void LabelPage::didInit() {
  CardPage::didInit();
  addCard(makeTextLinksCard());
  addCard(makeUnderlineCard());
  addCard(makeVerticalAlignmentCard());
  addCard(makeRoundingCard());
  addCard(makeBaselineCard());
  addCard(makeAlignmentCard());
  addCard(makeLineBreakCard());
  addCard(makeLetterSpacingCard());
  addCard(makeLineHeightCard());
}

}  // namespace bkuk::gallery
