#pragma once

#include <cstdint>

#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSMutableParagraphStyle;

/// The direction in which a paragraph runs; `natural` goes with its first strong letter.
enum class NSWritingDirection : std::int8_t { natural = -1, leftToRight = 0, rightToLeft = 1 };

/// How the lines of a paragraph are set. Lengths are in points; as a height 0 means no limit.
class NSParagraphStyle : public NSObject {
 public:
  NSParagraphStyle() = default;
  explicit NSParagraphStyle(const NSParagraphStyle& other) : values_(other.values_) {}

  /// What a text has that names no other: the values of a new object.
  [[nodiscard]] static const Ref<NSParagraphStyle>& default_();

  [[nodiscard]] NSTextAlignment alignment() const { return values_.alignment; }
  [[nodiscard]] NSLineBreakMode lineBreakMode() const { return values_.lineBreakMode; }
  [[nodiscard]] NSWritingDirection baseWritingDirection() const { return values_.baseWritingDirection; }
  [[nodiscard]] bool allowsDefaultTighteningForTruncation() const { return values_.defaultTightening; }
  /// How much of the space between letters may go before a line is truncated.
  [[nodiscard]] float tighteningFactorForTruncation() const { return values_.tighteningFactor; }
  [[nodiscard]] float hyphenationFactor() const { return values_.hyphenationFactor; }
  [[nodiscard]] CGFloat minimumLineHeight() const { return values_.minimumLineHeight; }
  [[nodiscard]] CGFloat maximumLineHeight() const { return values_.maximumLineHeight; }
  /// Times the natural height of a line, before the limits; 0 means 1.
  [[nodiscard]] CGFloat lineHeightMultiple() const { return values_.lineHeightMultiple; }
  /// Below each line but the last.
  [[nodiscard]] CGFloat lineSpacing() const { return values_.lineSpacing; }
  [[nodiscard]] CGFloat paragraphSpacing() const { return values_.paragraphSpacing; }
  [[nodiscard]] CGFloat paragraphSpacingBefore() const { return values_.paragraphSpacingBefore; }
  [[nodiscard]] CGFloat firstLineHeadIndent() const { return values_.firstLineHeadIndent; }
  [[nodiscard]] CGFloat headIndent() const { return values_.headIndent; }
  [[nodiscard]] CGFloat tailIndent() const { return values_.tailIndent; }

  /// A style that does not change with this one.
  [[nodiscard]] Ref<NSParagraphStyle> copy() const { return make<NSParagraphStyle>(*this); }
  [[nodiscard]] Ref<NSMutableParagraphStyle> mutableCopy() const;

  /// By value, whichever of the two classes.
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override;
  [[nodiscard]] std::string className() const override { return "NSParagraphStyle"; }

 protected:
  struct Values {
    NSTextAlignment alignment = NSTextAlignment::natural;
    NSLineBreakMode lineBreakMode = NSLineBreakMode::wordWrapping;
    NSWritingDirection baseWritingDirection = NSWritingDirection::natural;
    bool defaultTightening = false;
    float tighteningFactor = 0.05F;
    float hyphenationFactor = 0;
    CGFloat minimumLineHeight = 0;
    CGFloat maximumLineHeight = 0;
    CGFloat lineHeightMultiple = 0;
    CGFloat lineSpacing = 0;
    CGFloat paragraphSpacing = 0;
    CGFloat paragraphSpacingBefore = 0;
    CGFloat firstLineHeadIndent = 0;
    CGFloat headIndent = 0;
    CGFloat tailIndent = 0;
    bool operator==(const Values&) const = default;
  };

  Values values_;
};

/// A paragraph style that can be changed, before it becomes the attribute of a text. Changing one that a text
/// has already does not lay that text out again.
class NSMutableParagraphStyle final : public NSParagraphStyle {
 public:
  NSMutableParagraphStyle() = default;
  explicit NSMutableParagraphStyle(const NSParagraphStyle& other) : NSParagraphStyle(other) {}

  void setAlignment(NSTextAlignment alignment) { values_.alignment = alignment; }
  void setLineBreakMode(NSLineBreakMode mode) { values_.lineBreakMode = mode; }
  void setBaseWritingDirection(NSWritingDirection direction) { values_.baseWritingDirection = direction; }
  void setAllowsDefaultTighteningForTruncation(bool allows) { values_.defaultTightening = allows; }
  void setTighteningFactorForTruncation(float factor) { values_.tighteningFactor = factor; }
  void setHyphenationFactor(float factor) { values_.hyphenationFactor = factor; }
  void setMinimumLineHeight(CGFloat height) { values_.minimumLineHeight = height; }
  void setMaximumLineHeight(CGFloat height) { values_.maximumLineHeight = height; }
  void setLineHeightMultiple(CGFloat multiple) { values_.lineHeightMultiple = multiple; }
  /// Never negative: less than 0, and what is no number, becomes 0.
  void setLineSpacing(CGFloat spacing) { values_.lineSpacing = spacing > 0 ? spacing : 0; }
  void setParagraphSpacing(CGFloat spacing) { values_.paragraphSpacing = spacing; }
  void setParagraphSpacingBefore(CGFloat spacing) { values_.paragraphSpacingBefore = spacing; }
  void setFirstLineHeadIndent(CGFloat indent) { values_.firstLineHeadIndent = indent; }
  void setHeadIndent(CGFloat indent) { values_.headIndent = indent; }
  void setTailIndent(CGFloat indent) { values_.tailIndent = indent; }

  [[nodiscard]] std::string className() const override { return "NSMutableParagraphStyle"; }
};

}  // namespace bkuk
