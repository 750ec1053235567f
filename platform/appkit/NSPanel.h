#pragma once

#include "platform/appkit/NSWindow.h"

namespace bkuk {

/// A window that accompanies others: it never becomes the main window.
class NSPanel : public NSWindow {
 public:
  using NSWindow::NSWindow;

  /// False at first. True: a click makes the panel key only on a view that needs the keyboard.
  [[nodiscard]] bool becomesKeyOnlyIfNeeded() const { return becomesKeyOnlyIfNeeded_; }
  void setBecomesKeyOnlyIfNeeded(bool onlyIfNeeded) { becomesKeyOnlyIfNeeded_ = onlyIfNeeded; }

  [[nodiscard]] bool canBecomeMain() const override { return false; }
  [[nodiscard]] bool becomesKeyByClick(const NSView* view) const override {
    return !becomesKeyOnlyIfNeeded_ || (view && view->needsPanelToBecomeKey());
  }

 private:
  bool becomesKeyOnlyIfNeeded_ = false;
};

}  // namespace bkuk
