#pragma once

#include "gallery/cards/CardPage.h"

namespace bkuk::gallery {

/// What labels do with their text: where it lies, where its lines break, what is drawn below it and which
/// parts of it can be clicked.
class LabelPage : public CardPage {
 protected:
  void didInit() override;
};

}  // namespace bkuk::gallery
