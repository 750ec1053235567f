#pragma once

#include "gallery/cards/CardPage.h"

namespace bkuk::gallery {

/// Markup that is typed, and at once the text that it makes.
class MarkupPage : public CardPage {
 protected:
  void didInit() override;
};

}  // namespace bkuk::gallery
