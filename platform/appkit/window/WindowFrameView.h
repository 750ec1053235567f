#pragma once

#include "platform/appkit/NSView.h"

namespace bkuk {

/// The root of a window's views: as large as the window, its space the window's base coordinates. It
/// paints the window's background. Made by its window.
class WindowFrameView : public NSView {
 public:
  explicit WindowFrameView(NSWindow& window);

  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  void updateLayer() override;

 private:
  void subviewWasTaken(NSView& view) override;
};

}  // namespace bkuk
