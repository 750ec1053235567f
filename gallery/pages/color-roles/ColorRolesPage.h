#pragma once

#include <vector>

#include "gallery/GalleryPage.h"
#include "gallery/pages/color-roles/SingleColorSwatch.h"
#include "gallery/pages/color-roles/SurfaceCard.h"

namespace bkuk::gallery {

/// Every colour role by name: a card for each surface with the colours of the content upon it, then the
/// colours that stand alone.
class ColorRolesPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  std::vector<Ref<SurfaceCard>> cards_;
  std::vector<Ref<SingleColorSwatch>> singles_;
};

}  // namespace bkuk::gallery
