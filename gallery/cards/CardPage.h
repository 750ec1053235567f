#pragma once

#include <vector>

#include "gallery/GalleryPage.h"
#include "gallery/cards/Card.h"

namespace bkuk::gallery {

/// A page of cards below each other.
class CardPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

 protected:
  void addCard(Ref<Card> card);

 private:
  std::vector<Ref<Card>> cards_;
};

}  // namespace bkuk::gallery
