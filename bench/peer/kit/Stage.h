#pragma once

#include <functional>

#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "bench/peer/common/Scene.h"

namespace bkuk::bench {

/// The window of a workload, without a frame. A frame of it is one turn of the run loop.
class Stage {
 public:
  enum class Redraw { views, nothing };

  explicit Stage(NSSize size = {peer::windowWidth, peer::windowHeight});
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  [[nodiscard]] NSView& content() const { return *window_->contentView(); }
  [[nodiscard]] BKUKWindow& window() const { return *window_; }

  /// Shows the window; returns when the desktop has its first frame.
  void showFirstFrame();
  /// Lets what was put off happen, so that it is not measured with what follows.
  static void settle();
  /// Turns until `condition` holds after one, asleep where nothing happens.
  static void turnUntil(const std::function<bool()>& condition);

  /// One frame in which the whole window changes by its background. The views draw theirs again, or are
  /// composed as they are. Throws when the frame did not come.
  void paintAgain(Redraw redraw);

  /// The pixel of the window where nothing but its background is, 0xAARRGGBB.
  [[nodiscard]] std::uint32_t backgroundPixel() const;

 private:
  const Ref<BKUKWindow> window_;
  bool isEven_ = false;
};

}  // namespace bkuk::bench
