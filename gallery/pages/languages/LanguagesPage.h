#pragma once

#include "gallery/GalleryPage.h"
#include "gallery/pages/languages/LanguageCard.h"

namespace bkuk::gallery {

/// Texts in languages whose letters the brand has or has not, and whose lines run one way or the other.
class LanguagesPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  std::vector<Ref<LanguageCard>> cards_;
};

}  // namespace bkuk::gallery
