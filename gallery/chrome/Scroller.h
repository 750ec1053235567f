#pragma once

#include "gallery/GalleryPage.h"
#include "gallery/chrome/Box.h"

namespace bkuk::gallery {

/// Shows a page that may be higher than the place for it: moved by the wheel, and with the keyboard on it
/// by the arrow, page, home and end keys.
class Scroller : public Box {
 public:
  Scroller();

  /// Shows `page` from its top.
  void setPage(Ref<GalleryPage> page);

  [[nodiscard]] bool acceptsFirstResponder() const override { return true; }
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  bool scrollToVisible(NSRect rect) override;
  void scrollWheel(NSEvent& event) override;
  void keyDown(NSEvent& event) override;
  void layout() override;

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override {
    return NSAccessibilityScrollAreaRole;
  }

 protected:
  void didInit() override;

 private:
  void scrollTo(CGFloat offset);
  void showFocus(bool focused);
  [[nodiscard]] CGFloat furthest() const;

  Ref<GalleryPage> page_;
  Ref<Box> thumb_;
  CGFloat offset_ = 0;
  CGFloat pageHeight_ = 0;
};

}  // namespace bkuk::gallery
