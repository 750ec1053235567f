#pragma once

#include <string>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// A timing curve: its plot, and a dot that travels a lane at its pace, over prints that it would leave at
/// equal intervals.
class CurveLane : public NSView {
 public:
  static constexpr CGFloat height = 60;  ///< points

  explicit CurveLane(std::string_view curve);

  /// Sends the dot to the other end.
  void travel(CGFloat seconds);
  /// Puts the dot back to the leading end at once.
  void reset();

  [[nodiscard]] bool isFlipped() const override { return true; }
  void draw(NSRect dirtyRect) override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  [[nodiscard]] NSRect dotFrame(CGFloat way) const;
  void placeDot() { dot_->setFrame(dotFrame(isAway_ ? 1 : 0)); }
  void drawPlot() const;
  void drawLane() const;

  Ref<CAMediaTimingFunction> curve_;
  Ref<TextLabel> name_;
  Ref<Box> dot_;
  bool isAway_ = false;
};

}  // namespace bkuk::gallery
