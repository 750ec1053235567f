#pragma once

#include <string>
#include <vector>

#include "gallery/GalleryPage.h"
#include "gallery/chrome/Box.h"
#include "gallery/chrome/Slider.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// Rows that constraints arrange anew as the window, or a slider, changes their width.
class LayoutPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  void makeWidthControl();
  /// How much of the page's width beyond the least one the cards take, 0 to 1.
  void setStageShare(CGFloat share);
  /// A card with a title and a remark, below those before.
  Ref<Box> addCard(std::string title, std::string remark);
  void makeEqualRow();
  void makeForm();
  void makePriorityRows();
  void makeTurnedRow();

  Ref<NSLayoutGuide> stage_;
  Ref<NSLayoutConstraint> stageWidth_;
  Ref<TextLabel> widthName_;
  Ref<TextLabel> widthValue_;
  Ref<Slider> width_;
  std::vector<Ref<Box>> cards_;
};

}  // namespace bkuk::gallery
