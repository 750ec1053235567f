#pragma once

#include "gallery/cards/CardPage.h"

namespace bkuk::gallery {

/// The brand's typography, its faces and their metrics, and the styles of links.
class FontsPage : public CardPage {
 protected:
  void didInit() override;
};

}  // namespace bkuk::gallery
