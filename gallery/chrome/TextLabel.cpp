#include "gallery/chrome/TextLabel.h"

#include <utility>

#include "gallery/brand/BrandFont.h"
#include "platform/foundation/CGRoundedUp.h"

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
  return {CGRoundedUp(line_->width()), CGRoundedUp(line_->ascent() + line_->descent())};
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
  const CGFloat height = line_->ascent() + line_->descent();
  const CGFloat top = (bounds().height() - height) / 2;
  if (line_->width() > bounds().width() + 0.5) return drawTruncated({0, top, bounds().width(), height});
  line_->draw(*NSGraphicsContext::current()->cgContext(), {startOf(*line_), top + line_->ascent()},
              *style_.color()->cgColor());
}

void TextLabel::drawTruncated(NSRect rect) const {
  const auto face = brandFont(style_.size, style_.weight);
  const auto style = make<NSMutableParagraphStyle>();
  style->setLineBreakMode(NSLineBreakMode::truncatingTail);
  const NSAttributedString text(NSString(text_),
                                {{NSFontAttributeName, make<NSFont>(face->postScriptName(), face)},
                                 {NSForegroundColorAttributeName, style_.color()},
                                 {NSParagraphStyleAttributeName, style}});
  text.draw(rect);
}

}  // namespace bkuk::gallery
