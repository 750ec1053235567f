#pragma once

#include <vector>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// A surface's colour as a card: upon it the five colours for content, each as a dot with its name, and
/// beside them the surface and its two variants as swatches. The two colours that are meant for text also
/// write their names.
class SurfaceCard : public Box {
 public:
  static constexpr CGFloat height = 186;  ///< points

  explicit SurfaceCard(BKUKThemeColorBase surface);

  void layout() override;
  void viewDidChangeEffectiveAppearance() override;

 protected:
  void didInit() override;

 private:
  struct ContentColor {
    Ref<Box> dot;
    Ref<TextLabel> name;
  };
  struct Variant {
    BKUKThemeColorRole role;
    Ref<Box> swatch;
    Ref<TextLabel> name;
    Ref<TextLabel> value;
  };

  void addContentColor(BKUKThemeColorOpacity opacity);
  void addVariant(int steps);
  void showValues();
  void layOutContentColors(CGFloat width);
  void layOutVariants(CGFloat width);

  BKUKThemeColorBase surface_;
  Ref<TextLabel> title_;
  std::vector<ContentColor> contentColors_;
  std::vector<Variant> variants_;
};

}  // namespace bkuk::gallery
