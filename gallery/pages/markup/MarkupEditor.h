#pragma once

#include <functional>
#include <string>

#include "BrenvikUIKit/BrenvikUIKit.h"
#include "platform/appkit/text/TextStack.h"

namespace bkuk::gallery {

/// A plain text that is typed into, as high as it needs: no more than the page of markup needs of an editor.
/// A click, the arrow, home and end keys move the caret; there is no selection.
class MarkupEditor : public NSView {
 public:
  using Handler = std::function<void(const std::string& text)>;

  explicit MarkupEditor(Handler changed) : changed_(std::move(changed)) {}

  /// UTF-8.
  [[nodiscard]] std::string text() const { return text_.utf8(); }
  /// Puts the caret at the end; tells the handler.
  void setText(std::string_view text);

  /// Points.
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const;

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] bool acceptsFirstResponder() const override { return true; }
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  void mouseEntered(NSEvent& event) override;
  void mouseExited(NSEvent& event) override;
  void mouseDown(NSEvent& event) override;
  void keyDown(NSEvent& event) override;
  void draw(NSRect dirtyRect) override;

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override { return NSAccessibilityTextAreaRole; }
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override { return text(); }

 protected:
  void didInit() override;

 private:
  /// Puts `typed` in place of a range and the caret behind it.
  void replace(NSRange range, const NSString& typed);
  void moveCaret(std::size_t to);
  [[nodiscard]] std::size_t before(std::size_t index) const;
  [[nodiscard]] std::size_t behind(std::size_t index) const;
  void updateLayout() const;
  [[nodiscard]] NSRect caretRect() const;
  void showFocus(bool focused);

  NSString text_;
  std::size_t caret_ = 0;  // the index that it stands before
  bool focused_ = false;
  Handler changed_;
  TextStack stack_;
};

}  // namespace bkuk::gallery
