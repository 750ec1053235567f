#pragma once

#include "platform/appkit/NSControl.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/appkit/text/TextStack.h"

namespace bkuk {

/// A text. A field that is neither editable nor selectable is static: it passes the pointer on to what it
/// lies on and never takes the keyboard.
class NSTextField : public NSControl {
 public:
  using NSControl::NSControl;

  /// A static field without bezel and background.
  [[nodiscard]] static Ref<NSTextField> labelWithString(std::string text);

  [[nodiscard]] const std::string& stringValue() const { return stringValue_; }
  /// UTF-8, with the attributes of the field: those that were set are dropped.
  void setStringValue(std::string text);
  /// The text with its attributes; those of a plain one are the field's font, colour and paragraph style. A
  /// field without a colour gives one that follows the appearance, also as part of another text.
  [[nodiscard]] Ref<NSAttributedString> attributedStringValue() const;
  /// Shows the text with its own attributes; what these leave open is the platform's default, not the
  /// field's.
  void setAttributedStringValue(const NSAttributedString& text);
  /// The desktop's interface face at first.
  [[nodiscard]] const Ref<NSFont>& font() const { return font_; }
  void setFont(Ref<NSFont> font);
  /// Resolved when it is drawn; absent, as at first, for black on a light appearance and white on a dark one.
  [[nodiscard]] const Ref<NSColor>& textColor() const { return textColor_; }
  void setTextColor(Ref<NSColor> color);
  /// Painted where `drawsBackground`; absent for none.
  [[nodiscard]] const Ref<NSColor>& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(Ref<NSColor> color);
  [[nodiscard]] NSTextAlignment alignment() const { return alignment_; }
  void setAlignment(NSTextAlignment alignment);
  /// What becomes of text that is wider than the field. Clipping at first.
  [[nodiscard]] NSLineBreakMode lineBreakMode() const { return lineBreakMode_; }
  void setLineBreakMode(NSLineBreakMode mode);
  [[nodiscard]] NSWritingDirection baseWritingDirection() const { return baseWritingDirection_; }
  void setBaseWritingDirection(NSWritingDirection direction);
  /// Whether letters may move together before text is truncated.
  [[nodiscard]] bool allowsDefaultTighteningForTruncation() const { return allowsTightening_; }
  void setAllowsDefaultTighteningForTruncation(bool allows);
  /// The width, in points, at which the intrinsic size counts on text being wrapped; 0, as at first, for
  /// none.
  [[nodiscard]] CGFloat preferredMaxLayoutWidth() const { return preferredMaxLayoutWidth_; }
  void setPreferredMaxLayoutWidth(CGFloat width);

  [[nodiscard]] bool isEditable() const { return editable_; }
  void setEditable(bool editable);
  [[nodiscard]] bool isSelectable() const { return selectable_; }
  void setSelectable(bool selectable);
  [[nodiscard]] bool drawsBackground() const { return drawsBackground_; }
  void setDrawsBackground(bool draws);
  /// A field has a bezel or a border, or neither: setting one true clears the other.
  [[nodiscard]] bool isBezeled() const { return bezeled_; }
  void setBezeled(bool bezeled);
  [[nodiscard]] bool isBordered() const { return bordered_; }
  void setBordered(bool bordered);

  [[nodiscard]] bool acceptsFirstResponder() const override { return isEnabled() && !isStatic(); }
  [[nodiscard]] bool needsPanelToBecomeKey() const override { return editable_; }
  void mouseDown(NSEvent& event) override;

  [[nodiscard]] bool isFlipped() const override { return true; }
  void layout() override;
  void draw(NSRect dirtyRect) override;

  /// The text with two points on each side; no width while the field is editable.
  [[nodiscard]] NSSize intrinsicContentSize() const override;
  [[nodiscard]] CGFloat firstBaselineOffsetFromTop() const override;
  [[nodiscard]] CGFloat lastBaselineOffsetFromBottom() const override;

  void viewDidChangeEffectiveAppearance() override { textDidChange(); }

  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override { return stringValue_; }
  [[nodiscard]] std::string className() const override { return "NSTextField"; }

 protected:
  void didInit() override;

 private:
  [[nodiscard]] bool isStatic() const { return !editable_ && !selectable_; }
  /// With the text and the layout of now.
  [[nodiscard]] const TextStack& laidOut() const;
  void updateStorage() const;
  [[nodiscard]] CGFloat top() const;
  void textDidChange();

  std::string stringValue_;
  Ref<NSAttributedString> attributedStringValue_;  // empty while the text is plain
  Ref<NSFont> font_;
  Ref<NSColor> textColor_;
  Ref<NSColor> backgroundColor_;
  NSTextAlignment alignment_ = NSTextAlignment::natural;
  NSLineBreakMode lineBreakMode_ = NSLineBreakMode::clipping;
  NSWritingDirection baseWritingDirection_ = NSWritingDirection::natural;
  CGFloat preferredMaxLayoutWidth_ = 0;
  bool allowsTightening_ = false;
  bool editable_ = true;
  bool selectable_ = true;
  bool drawsBackground_ = true;
  bool bezeled_ = true;
  bool bordered_ = false;
  CGFloat toldFirstBaseline_ = -1;  // to the constraints
  // Brought up to date when it is needed.
  mutable bool storageIsStale_ = true;
  TextStack stack_;
};

}  // namespace bkuk
