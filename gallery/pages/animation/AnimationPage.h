#pragma once

#include <vector>

#include "gallery/GalleryPage.h"
#include "gallery/chrome/Choice.h"
#include "gallery/pages/animation/CurveLane.h"
#include "gallery/pages/animation/FrameRow.h"

namespace bkuk::gallery {

/// Animations of the frame clock with their phases, and views that move along the timing curves; started and
/// stopped together.
class AnimationPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  enum class Mode { stop, once, loop };

  void makeRows();
  void makeLanes();
  void setMode(Mode mode);
  void rowDidFinish();
  void startLanes();
  void travelLanes();

  Mode mode_ = Mode::stop;
  std::size_t unfinishedRows_ = 0;
  unsigned trip_ = 0;  // counts the starts of the lanes, so that the ends of older ones are known
  Ref<Choice> modeChoice_;
  Ref<TextLabel> framesHeading_;
  Ref<TextLabel> curvesHeading_;
  std::vector<Ref<FrameRow>> rows_;
  Ref<Box> card_;
  std::vector<Ref<CurveLane>> lanes_;
};

}  // namespace bkuk::gallery
