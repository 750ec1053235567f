#include "gallery/cards/CardPage.h"

#include <utility>

namespace bkuk::gallery {

namespace {

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat cardGap = 18;

}  // namespace

void CardPage::addCard(Ref<Card> card) {
  addSubview(card);
  cards_.push_back(std::move(card));
}

CGFloat CardPage::heightForWidth(CGFloat width) const {
  CGFloat height = topMargin;
  for (const auto& card : cards_) height += card->heightForWidth(width - 2 * margin) + cardGap;
  return height - cardGap + margin;
}

std::vector<NSView*> CardPage::keyViews() const {
  std::vector<NSView*> views;
  for (const auto& card : cards_) {
    const auto ofCard = card->keyViews();
    views.insert(views.end(), ofCard.begin(), ofCard.end());
  }
  return views;
}

void CardPage::layout() {
  const CGFloat width = bounds().width() - 2 * margin;
  CGFloat top = topMargin;
  for (const auto& card : cards_) {
    const CGFloat height = card->heightForWidth(width);
    card->setFrame({margin, top, width, height});
    top += height + cardGap;
  }
}

}  // namespace bkuk::gallery
