#pragma once

#include <functional>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/ScrollBar.h"

namespace bkuk::gallery {

/// Shows content that may be higher than the place for it: moved by the wheel, by its bar and, with the
/// keyboard on it or on something in it that leaves them, by the arrow, page, home and end keys.
class Scroller : public Box {
 public:
  /// Answers the height that the content needs at a width, in points. Asked before each layout.
  using HeightForWidth = std::function<CGFloat(CGFloat width)>;

  enum class KeyView {
    never,         ///< what it shows takes the keyboard
    whenScrolling  ///< takes the keyboard while there is more than fits
  };

  explicit Scroller(Color background, KeyView keyView = KeyView::whenScrolling);

  /// Shows `content` from its top.
  void setContent(Ref<NSView> content, HeightForWidth heightForWidth);

  [[nodiscard]] bool acceptsFirstResponder() const override;
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

  Color background_;
  KeyView keyView_;
  Ref<NSView> content_;
  HeightForWidth heightForWidth_;
  Ref<ScrollBar> bar_;
  CGFloat offset_ = 0;
  CGFloat contentHeight_ = 0;
};

}  // namespace bkuk::gallery
