#include "gallery/pages/fonts/FontsPage.h"

#include "gallery/pages/fonts/FontCards.h"

namespace bkuk::gallery {

void FontsPage::didInit() {
  CardPage::didInit();
  addCard(makeRolesCard());
  addCard(makeWeightsCard());
  addCard(makeMetricsCard());
  addCard(makeLinkStatesCard());
}

}  // namespace bkuk::gallery
