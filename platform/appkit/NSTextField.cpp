#include "platform/appkit/NSTextField.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/CGRoundedUp.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

constexpr CGFloat padding = 2;  // points on each side
constexpr auto measuring = NSStringDrawingOptions::usesFontLeading;

/// Black on a light appearance and white on a dark one, whichever there is when it is asked.
class TextColor final : public NSColor {
 public:
  [[nodiscard]] Ref<CGColor> cgColor() const override {
    const bool isDark = NSApplication::shared().effectiveAppearance()->isDark();
    return (isDark ? NSColor::white() : NSColor::black())->cgColor();
  }
};

Ref<NSColor> shownTextColor(const Ref<NSColor>& color) {
  static const auto& usual = permanent([]() -> Ref<NSColor> { return make<TextColor>(); });
  return color ? color : usual;
}

/// Of a field without text too.
CGFloat heightOfLine(const Ref<NSFont>& font) {
  const NSAttributedString line(NSString(" "), NSAttributeDictionary{{NSFontAttributeName, font}});
  return line.boundingRect({}, NSStringDrawingOptions::usesLineFragmentOrigin | measuring).size.height;
}

}  // namespace

Ref<NSTextField> NSTextField::labelWithString(std::string text) {
  auto field = make<NSTextField>();
  field->setEditable(false);
  field->setSelectable(false);
  field->setBezeled(false);
  field->setDrawsBackground(false);
  field->setStringValue(std::move(text));
  return field;
}

void NSTextField::didInit() {
  NSControl::didInit();
  if (!font_) font_ = NSFont::systemFont(0);
  setAccessibilityRole(NSAccessibilityStaticTextRole);
  setAccessibilityElement(true);
}

// Text

void NSTextField::setStringValue(std::string text) {
  if (text == stringValue_ && !attributedStringValue_) return;
  stringValue_ = std::move(text);
  attributedStringValue_ = nullptr;
  textDidChange();
  NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
}

Ref<NSAttributedString> NSTextField::attributedStringValue() const {
  if (attributedStringValue_) return attributedStringValue_;
  const auto style = make<NSMutableParagraphStyle>();
  style->setAlignment(alignment_);
  style->setLineBreakMode(lineBreakMode_);
  style->setBaseWritingDirection(baseWritingDirection_);
  style->setAllowsDefaultTighteningForTruncation(allowsTightening_);
  return make<NSAttributedString>(
      NSString(stringValue_),
      NSAttributeDictionary{{NSFontAttributeName, font_},
                            {NSForegroundColorAttributeName, shownTextColor(textColor_)},
                            {NSParagraphStyleAttributeName, style}});
}

void NSTextField::setAttributedStringValue(const NSAttributedString& text) {
  attributedStringValue_ = text.copy();
  stringValue_ = attributedStringValue_->string().utf8();
  textDidChange();
  NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
}

void NSTextField::setFont(Ref<NSFont> font) {
  font_ = font ? std::move(font) : NSFont::systemFont(0);
  textDidChange();
}

void NSTextField::textDidChange() {
  storageIsStale_ = true;
  invalidateIntrinsicContentSize();
  setNeedsDisplay(true);
}

void NSTextField::setTextColor(Ref<NSColor> color) {
  textColor_ = std::move(color);
  textDidChange();
}

void NSTextField::setBackgroundColor(Ref<NSColor> color) {
  backgroundColor_ = std::move(color);
  setNeedsDisplay(true);
}

void NSTextField::setAlignment(NSTextAlignment alignment) {
  alignment_ = alignment;
  textDidChange();
}

void NSTextField::setLineBreakMode(NSLineBreakMode mode) {
  lineBreakMode_ = mode;
  textDidChange();
}

void NSTextField::setBaseWritingDirection(NSWritingDirection direction) {
  baseWritingDirection_ = direction;
  textDidChange();
}

void NSTextField::setAllowsDefaultTighteningForTruncation(bool allows) {
  allowsTightening_ = allows;
  textDidChange();
}

void NSTextField::setPreferredMaxLayoutWidth(CGFloat width) {
  preferredMaxLayoutWidth_ = width;
  invalidateIntrinsicContentSize();
}

// Looks and behaviour

void NSTextField::setEditable(bool editable) {
  editable_ = editable;
  invalidateIntrinsicContentSize();
}

void NSTextField::setSelectable(bool selectable) { selectable_ = selectable; }

void NSTextField::setDrawsBackground(bool draws) {
  drawsBackground_ = draws;
  setNeedsDisplay(true);
}

void NSTextField::setBezeled(bool bezeled) {
  bezeled_ = bezeled;
  if (bezeled) bordered_ = false;
  setNeedsDisplay(true);
}

void NSTextField::setBordered(bool bordered) {
  bordered_ = bordered;
  if (bordered) bezeled_ = false;
  setNeedsDisplay(true);
}

void NSTextField::mouseDown(NSEvent& event) {
  if (isStatic()) return NSView::mouseDown(event);
  NSControl::mouseDown(event);
}

// Layout

void NSTextField::updateStorage() const {
  if (std::exchange(storageIsStale_, false)) stack_.storage()->setAttributedString(*attributedStringValue());
}

const TextStack& NSTextField::laidOut() const {
  updateStorage();
  stack_.setLayout(std::max(1.0, bounds().width() - 2 * padding), userInterfaceLayoutDirection());
  return stack_;
}

NSSize NSTextField::intrinsicContentSize() const {
  const CGFloat width = std::max(0.0, preferredMaxLayoutWidth_ - 2 * padding);
  updateStorage();
  const NSSize size =
      stringValue_.empty() ? NSSize{0, heightOfLine(font_)} : stack_.measure(width, measuring);
  return {editable_ ? NSViewNoIntrinsicMetric : CGRoundedUp(size.width) + 2 * padding,
          CGRoundedUp(size.height)};
}

// A new size moves the text, and the baselines that constraints go by.
void NSTextField::layout() {
  NSControl::layout();
  const CGFloat first = firstBaselineOffsetFromTop();
  if (std::exchange(toldFirstBaseline_, first) != first) invalidateIntrinsicContentSize();
}

// Text that is lower than the field stands in its middle.
CGFloat NSTextField::top() const {
  return std::max(0.0, (bounds().height() - laidOut().usedRect().height()) / 2);
}

CGFloat NSTextField::firstBaselineOffsetFromTop() const {
  if (stringValue_.empty()) return (bounds().height() + font_->ascender() + font_->descender()) / 2;
  return top() + laidOut().manager()->location(0).y;
}

CGFloat NSTextField::lastBaselineOffsetFromBottom() const {
  if (stringValue_.empty()) return bounds().height() - firstBaselineOffsetFromTop();
  const auto& stack = laidOut();
  auto& manager = *stack.manager();
  const std::size_t last = NSMaxRange(stack.shownRange()) - 1;
  return bounds().height() - top() - manager.lineFragmentRect(last).minY() - manager.location(last).y;
}

// Drawing

void NSTextField::draw(NSRect) {
  const auto context = NSGraphicsContext::current()->cgContext();
  if (drawsBackground_ && backgroundColor_) {
    context->setFillColor(backgroundColor_->cgColor());
    context->fill(bounds());
  }
  if (bezeled_ || bordered_) {
    context->setStrokeColor(shownTextColor(nullptr)->withAlphaComponent(0.25)->cgColor());
    context->setLineWidth(1);
    context->addRect(bounds().insetBy(0.5, 0.5));
    context->strokePath();
  }
  context->clip(bounds());
  laidOut().draw({padding, top()});
}

}  // namespace bkuk
