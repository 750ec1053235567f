#pragma once

#include <vector>

#include "gallery/GalleryPage.h"
#include "gallery/chrome/Choice.h"
#include "gallery/chrome/Slider.h"
#include "gallery/pages/shapes/DashRow.h"

namespace bkuk::gallery {

/// Dash patterns fitted to lines and outlines in every way there is, at a length that a slider sets.
class ShapesPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  void makeControls();
  void showPattern(std::size_t index);
  void showExtent(CGFloat extent);
  void layoutControls(CGFloat width);

  Ref<Choice> patternChoice_;
  Ref<TextLabel> lengthLabel_;
  Ref<Slider> length_;
  Ref<TextLabel> lengthValue_;
  std::vector<Ref<TextLabel>> headings_;
  std::vector<Ref<DashRow>> rows_;
};

}  // namespace bkuk::gallery
