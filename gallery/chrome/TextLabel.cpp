#include "gallery/chrome/TextLabel.h"

#include <cmath>
#include <utility>

#include "gallery/brand/BrandFont.h"
#include "platform/appkit/NSTruncatedLine.h"

namespace bkuk::gallery {

TextLabel::TextLabel(std::string text, Style style) : text_(std::move(text)), style_(std::move(style)) {
  shape();
}

void TextLabel::shape() { line_ = make<CTLine>(NSString(text_), brandFont(style_.size, style_.weight)); }

void TextLabel::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  shape();
  invalidateIntrinsicContentSize();
  setNeedsDisplay(true);
  NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
}

NSAccessibilityRole TextLabel::accessibilityRole() const {
  const auto role = NSView::accessibilityRole();
  return role == NSAccessibilityUnknownRole ? NSAccessibilityStaticTextRole : role;
}

void TextLabel::setColor(Color color) {
  style_.color = std::move(color);
  setNeedsDisplay(true);
}

CGFloat TextLabel::textWidth() const { return line_->width(); }

NSSize TextLabel::intrinsicContentSize() const {
  return {std::ceil(line_->width()), std::ceil(line_->ascent() + line_->descent())};
}

CGFloat TextLabel::firstBaselineOffsetFromTop() const {
  return (intrinsicContentSize().height + line_->ascent() - line_->descent()) / 2;
}

CGFloat TextLabel::lastBaselineOffsetFromBottom() const {
  return intrinsicContentSize().height - firstBaselineOffsetFromTop();
}

CGFloat TextLabel::startOf(const CTLine& line) const {
  const CGFloat rest = bounds().width() - line.width();
  if (style_.alignment == Alignment::center) return rest / 2;
  const bool isRightToLeft = userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  return (style_.alignment == Alignment::trailing) != isRightToLeft ? rest : 0;
}

void TextLabel::draw(NSRect) {
  const bool fits = line_->width() <= bounds().width() + 0.5;
  const auto line = fits ? line_
                         : NSTruncatedLine(NSString(text_), brandFont(style_.size, style_.weight),
                                           bounds().width(), NSLineBreakMode::truncatingTail);
  const CGFloat baseline = (bounds().height() + line->ascent() - line->descent()) / 2;
  line->draw(*NSGraphicsContext::current()->cgContext(), {startOf(*line), baseline},
             *style_.color()->cgColor());
}

}  // namespace bkuk::gallery
