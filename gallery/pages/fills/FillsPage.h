#pragma once

#include <vector>

#include "gallery/GalleryPage.h"
#include "gallery/cards/Grid.h"
#include "gallery/cards/Specimen.h"
#include "gallery/chrome/Slider.h"

namespace bkuk::gallery {

/// Stacks of fills, corners and borders, shadows, and the directions of gradients, of which a slider turns
/// one.
class FillsPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  struct Section {
    Ref<TextLabel> title;
    std::vector<Ref<Specimen>> specimens;
    CGFloat cellHeight = 0;
  };

  void addSection(const char* title, std::vector<Ref<Specimen>> specimens, CGFloat cellHeight);
  void makeTurningGradient();
  void turnGradient(CGFloat degrees);
  void layoutTurningGradient(CGFloat top);
  [[nodiscard]] CGFloat layoutSection(const Section& section, CGFloat top);
  [[nodiscard]] static CGFloat heightOf(const Section& section, CGFloat width);

  std::vector<Section> sections_;
  Ref<BKUKGradientView> turning_;
  Ref<TextLabel> degreesName_;
  Ref<TextLabel> degreesRemark_;
  Ref<Slider> degrees_;
  Ref<TextLabel> degreesValue_;
};

}  // namespace bkuk::gallery
