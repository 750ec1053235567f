#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "BrenvikUIKit/text/BKUKAttributedStringBuilder.h"
#include "BrenvikUIKit/text/BKUKCustomAttributeOperatorManager.h"
#include "BrenvikUIKit/text/BKUKFontConfig.h"
#include "BrenvikUIKit/text/BKUKFontSettings.h"
#include "BrenvikUIKit/text/BKUKLabelLayoutManager.h"
#include "BrenvikUIKit/text/BKUKLabelOptions.h"
#include "BrenvikUIKit/text/BKUKLabelTextClickDelegate.h"
#include "BrenvikUIKit/text/BKUKParagraphAttributes.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/text/TextStack.h"
#include "platform/foundation/WeakDelegate.h"

namespace bkuk {

/// A text that is shown and not edited.
///
/// The label lays its text out by itself, so that it decides what a text field leaves to chance: the height
/// of the text's box, which can be rounded to even or odd points, where in the label the box lies, and the
/// places of its baselines, which constraints align by. Text wraps at the label's width; its intrinsic width
/// is that of the longest line. Lengths are in points, y runs down.
class BKUKLabel : public NSView {
 public:
  /// How far text is moved in a font.
  using TextPadding = BKUKFontConfig::Offset;

  explicit BKUKLabel(NSRect frame = {});
  ~BKUKLabel() override;
  /// A label with that text, in UTF-8.
  [[nodiscard]] static Ref<BKUKLabel> label(std::string_view text);
  /// A label with that text in that style.
  [[nodiscard]] static Ref<BKUKLabel> label(std::string_view text, const BKUKFontSettings& style);

  // Text

  /// The plain text, in UTF-8.
  [[nodiscard]] std::string stringValue() const;
  void setStringValue(std::string_view text);
  /// The text as it was set; empty for none. Its own attributes go before those of the label.
  [[nodiscard]] const Ref<NSAttributedString>& attributedStringValue() const;
  void setAttributedStringValue(Ref<NSAttributedString> text);

  // Attributes. Each setter makes the label lay out and draw again.

  /// Takes over alignment, colour, font and letter spacing, nothing else.
  void apply(const BKUKFontSettings& style);
  [[nodiscard]] const BKUKTextAttributes& attributes() const { return builder_->attributes(); }
  void setAttributes(const BKUKTextAttributes& attributes);
  [[nodiscard]] const Ref<NSFont>& font() const { return attributes().font; }
  void setFont(Ref<NSFont> font);
  [[nodiscard]] const Ref<NSColor>& textColor() const { return attributes().textColor; }
  /// Resolved when the label is drawn.
  void setTextColor(Ref<NSColor> color);
  [[nodiscard]] std::optional<NSUnderlineStyle> underline() const { return attributes().underline; }
  void setUnderline(std::optional<NSUnderlineStyle> style);
  [[nodiscard]] const Ref<NSColor>& underlineColor() const { return attributes().underlineColor; }
  void setUnderlineColor(Ref<NSColor> color);
  [[nodiscard]] std::optional<double> letterSpacing() const { return attributes().letterSpacing; }
  void setLetterSpacing(std::optional<double> spacing);
  [[nodiscard]] std::optional<double> lineHeight() const { return attributes().lineHeight; }
  /// The least height of a line.
  void setLineHeight(std::optional<double> height);
  [[nodiscard]] std::optional<NSTextAlignment> alignment() const { return attributes().alignment; }
  void setAlignment(std::optional<NSTextAlignment> alignment);
  [[nodiscard]] std::optional<NSLineBreakMode> lineBreakMode() const { return attributes().lineBreakMode; }
  void setLineBreakMode(std::optional<NSLineBreakMode> mode);
  [[nodiscard]] std::optional<bool> defaultTightening() const { return attributes().defaultTightening; }
  /// Whether letters may move together before text is truncated.
  void setDefaultTightening(std::optional<bool> tightens);
  [[nodiscard]] std::optional<double> tighteningFactor() const { return attributes().tighteningFactor; }
  /// How much too long, as a share of the width, a line may be to be moved together.
  void setTighteningFactor(std::optional<double> factor);
  using CustomAttribute = BKUKFontSettings::CustomAttribute;
  [[nodiscard]] const std::optional<CustomAttribute>& customAttribute() const {
    return attributes().customAttribute;
  }
  /// On all of the text: whoever replaces text is asked for it as a whole.
  void setCustomAttribute(std::optional<CustomAttribute> attribute);
  [[nodiscard]] BKUKParagraphAttributes paragraphAttributes() const;
  void setParagraphAttributes(const BKUKParagraphAttributes& paragraph);

  [[nodiscard]] BKUKLayoutRoundingRule layoutRoundingRule() const { return roundingRule_; }
  void setLayoutRoundingRule(BKUKLayoutRoundingRule rule);
  [[nodiscard]] BKUKLabelVerticalAlignment verticalAlignment() const { return verticalAlignment_; }
  /// Centred at first.
  void setVerticalAlignment(BKUKLabelVerticalAlignment alignment);
  [[nodiscard]] const BKUKLabelDrawingOptions& drawingOptions() const { return drawingOptions_; }
  void setDrawingOptions(BKUKLabelDrawingOptions options);
  /// Added above and below the text, as far as the font asks. Those of `BKUKFontConfig` at the time when the
  /// label is made.
  [[nodiscard]] const TextPadding& topTextPadding() const { return topTextPadding_; }
  void setTopTextPadding(TextPadding padding);
  [[nodiscard]] const TextPadding& bottomTextPadding() const { return bottomTextPadding_; }
  void setBottomTextPadding(TextPadding padding);
  [[nodiscard]] static TextPadding defaultTopTextPadding();
  [[nodiscard]] static TextPadding defaultBottomTextPadding();

  /// The size of the font. Setting it keeps the face, so that an animator can drive it; without a font it
  /// changes nothing.
  [[nodiscard]] double animatableFontSize() const { return font() ? font()->pointSize() : 0; }
  void setAnimatableFontSize(double size);

  // Text field sync: the label shows its text as high as a text field beside it. It needs an alignment: a
  // label without one stops the process when it is measured. Text with attachments is not synced.

  /// What a label starts out with; false at first.
  static std::function<bool()>& defaultUseNSTextFieldSync;
  [[nodiscard]] bool shouldUseNSTextFieldSync() const { return usesTextFieldSync_; }
  void setShouldUseNSTextFieldSync(bool uses);
  /// Becomes, rounded, the space between the lines.
  [[nodiscard]] double verticalNSTextFieldSyncOffset() const { return syncOffset_; }
  void setVerticalNSTextFieldSyncOffset(double offset);
  /// Moves the text down.
  [[nodiscard]] double verticalNSTextFieldSyncDrawOffset() const { return syncDrawOffset_; }
  void setVerticalNSTextFieldSyncDrawOffset(double offset);

  // What the text is made of

  [[nodiscard]] const Ref<BKUKAttributedStringBuilder>& builder() const { return builder_; }
  [[nodiscard]] const Ref<NSTextStorage>& textStorage() const { return stack().storage(); }
  [[nodiscard]] const Ref<BKUKLabelLayoutManager>& textLayoutManager() const;
  [[nodiscard]] const Ref<NSTextContainer>& textContainer() const { return stack().container(); }
  /// Who may replace pieces of the text; absent, as at first, for the shared manager.
  [[nodiscard]] const Ref<BKUKCustomAttributeOperatorManager>& customAttributeOperatorManager() const {
    return operatorManager_;
  }
  void setCustomAttributeOperatorManager(Ref<BKUKCustomAttributeOperatorManager> manager) {
    operatorManager_ = std::move(manager);
  }

  /// Not kept alive. Null when there is none, or it is gone.
  [[nodiscard]] BKUKLabelTextClickDelegate* clickDelegate() const;
  void setClickDelegate(BKUKLabelTextClickDelegate* delegate);

  /// The character at a point of the label, as if its text began at the label's upper edge; past the half of
  /// a character the next one when `roundingUp` says so. 0 left of and above the text, and on its right and
  /// lower edge; the number of characters beyond these.
  [[nodiscard]] std::size_t characterIndex(NSPoint at, bool roundingUp);

  /// The height that the label asks for where it is `forWidth` points wide, whatever its width is now: for
  /// whoever places labels without constraints. A width of 0 wraps nothing. Changes nothing of what is shown.
  [[nodiscard]] double height(double forWidth) const;

  // What the last measuring found

  [[nodiscard]] NSSize cachedIntrinsicContentSize() const { return cachedIntrinsicContentSize_; }
  /// By how much the text is moved down in its box.
  [[nodiscard]] double layoutRoundingOffset() const { return layoutRoundingOffset_; }
  /// Whether the text storage has to take over text and attributes before the text is measured or drawn.
  [[nodiscard]] bool needsUpdateContainer() const { return needsUpdateContainer_; }
  /// Whether the next layout looks up the font that the baselines are those of.
  [[nodiscard]] bool needsUpdateSecondaryConstraints() const { return needsUpdateSecondaryConstraints_; }

  // NSView

  [[nodiscard]] bool isFlipped() const override { return true; }
  [[nodiscard]] NSSize intrinsicContentSize() const override;
  [[nodiscard]] CGFloat firstBaselineOffsetFromTop() const override { return firstBaselineOffsetFromTop_; }
  /// As a step from the lower edge with y up: below 0, as a font's descender is. Constraints know.
  [[nodiscard]] CGFloat lastBaselineOffsetFromBottom() const override {
    return lastBaselineOffsetFromBottom_;
  }
  [[nodiscard]] CGFloat lastBaselineDistanceFromBottom() const override {
    return -lastBaselineOffsetFromBottom_;
  }
  void layout() override;
  void draw(NSRect dirtyRect) override;
  void mouseDown(NSEvent& event) override;
  void viewDidChangeEffectiveAppearance() override;
  [[nodiscard]] NSAccessibilityValue accessibilityValue() const override;
  [[nodiscard]] std::string className() const override { return "BKUKLabel"; }

 protected:
  void didInit() override;

  /// Brings the text storage up to date with text and attributes, and the container with the label's width.
  void updateContainer() const;
  /// From the label's upper edge to where the text is drawn.
  [[nodiscard]] double drawnTextTop() const;
  /// Called when another text, or other attributes, were set.
  virtual void textDidChange();

 private:
  struct Measure {
    NSSize size;
    double roundingOffset = 0;
  };

  struct Text;

  /// Made when the text is first laid out, or somebody asks for a part of it.
  [[nodiscard]] Text& text() const;
  [[nodiscard]] const TextStack& stack() const;
  template <typename Change>
  void changeAttributes(Change change);
  void didUpdateAttributes();
  void replaceCustomAttributes();
  void measureAgain();
  [[nodiscard]] bool isSynced() const;
  void setSyncedLineSpacing(NSMutableAttributedString& text, double spacing) const;
  [[nodiscard]] NSSize textSize(double forWidth) const;
  [[nodiscard]] Measure measured(double labelWidth) const;
  NSSize measureNow() const;
  [[nodiscard]] double verticalTextOffset() const;
  [[nodiscard]] Ref<NSFont> fontForBaselines() const;
  [[nodiscard]] static bool defaultTextFieldSync();

  BKUKLayoutRoundingRule roundingRule_ = BKUKLayoutRoundingRule::none;
  BKUKLabelDrawingOptions drawingOptions_;
  BKUKLabelVerticalAlignment verticalAlignment_ = BKUKLabelVerticalAlignment::center;
  TextPadding topTextPadding_ = defaultTopTextPadding();
  TextPadding bottomTextPadding_ = defaultBottomTextPadding();
  mutable std::unique_ptr<Text> text_;
  mutable bool needsUpdateContainer_ = false;
  Ref<BKUKAttributedStringBuilder> builder_ = make<BKUKAttributedStringBuilder>();
  bool needsUpdateSecondaryConstraints_ = true;
  Ref<NSFont> secondaryConstraintFontCache_;
  double firstBaselineOffsetFromTop_ = 0;
  double lastBaselineOffsetFromBottom_ = 0;
  WeakDelegate<BKUKLabelTextClickDelegate> clickDelegate_;
  // Found out together, whenever the size is asked for.
  mutable NSSize cachedIntrinsicContentSize_;
  mutable double layoutRoundingOffset_ = 0;
  bool usesTextFieldSync_ = defaultTextFieldSync();
  double syncOffset_ = 0;
  double syncDrawOffset_ = 0;
  Ref<BKUKCustomAttributeOperatorManager> operatorManager_;
};

}  // namespace bkuk
