#include "gallery/pages/markup/MarkupPage.h"

#include "gallery/pages/markup/MarkupCards.h"

namespace bkuk::gallery {

void MarkupPage::didInit() {
  CardPage::didInit();
  const auto result = make<MarkupResultCard>();
  addCard(make<MarkupSourceCard>([result](const std::string& markup) { result->show(markup); }));
  addCard(result);
  addCard(makeMarkupTagsCard());
}

}  // namespace bkuk::gallery
