#include "platform/appkit/NSTextField.h"

#include <cmath>
#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSGraphicsContext.h"
#include "platform/foundation/NSString.h"

namespace bkuk {

namespace {

constexpr CGFloat padding = 2;  // points on each side
constexpr char16_t ellipsis = u'\u2026';

bool isDark() {
  const std::string_view names[] = {NSAppearanceNameAqua, NSAppearanceNameDarkAqua};
  return NSApplication::shared().effectiveAppearance()->bestMatch(names) == NSAppearanceNameDarkAqua;
}

bool isSecondOfPair(std::u16string_view text, std::size_t index) {
  return index < text.size() && text[index] >= 0xDC00 && text[index] <= 0xDFFF;
}

// The text with only `kept` of its units and an ellipsis in place of the others. Pairs stay whole.
NSString shortened(std::u16string_view text, std::size_t kept, NSLineBreakMode mode) {
  std::size_t head = kept;
  if (mode == NSLineBreakMode::truncatingHead) head = 0;
  if (mode == NSLineBreakMode::truncatingMiddle) head = (kept + 1) / 2;
  std::size_t tail = text.size() - (kept - head);
  if (isSecondOfPair(text, head)) --head;
  if (isSecondOfPair(text, tail)) ++tail;
  return NSString(std::u16string(text.substr(0, head)) + ellipsis + std::u16string(text.substr(tail)));
}

}  // namespace

Ref<NSTextField> NSTextField::labelWithString(std::string text) {
  const auto field = make<NSTextField>();
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

void NSTextField::setStringValue(std::string text) {
  if (text == stringValue_) return;
  stringValue_ = std::move(text);
  textDidChange();
  NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
}

void NSTextField::setFont(Ref<NSFont> font) {
  font_ = font ? std::move(font) : NSFont::systemFont(0);
  textDidChange();
}

void NSTextField::textDidChange() {
  line_ = nullptr;
  setNeedsDisplay(true);
}

void NSTextField::setTextColor(Ref<NSColor> color) {
  textColor_ = std::move(color);
  setNeedsDisplay(true);
}

void NSTextField::setBackgroundColor(Ref<NSColor> color) {
  backgroundColor_ = std::move(color);
  setNeedsDisplay(true);
}

void NSTextField::setAlignment(NSTextAlignment alignment) {
  alignment_ = alignment;
  setNeedsDisplay(true);
}

void NSTextField::setLineBreakMode(NSLineBreakMode mode) {
  lineBreakMode_ = mode;
  setNeedsDisplay(true);
}

void NSTextField::setEditable(bool editable) { editable_ = editable; }

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

// Drawing

const Ref<CTLine>& NSTextField::line() const {
  if (!line_) {
    const bool isRightToLeft = userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
    line_ = make<CTLine>(NSString(stringValue_), font_->face(),
                         isRightToLeft ? CTWritingDirection::rightToLeft : CTWritingDirection::leftToRight);
  }
  return line_;
}

Ref<CTLine> NSTextField::lineFitting(CGFloat width) const {
  const bool truncates = lineBreakMode_ >= NSLineBreakMode::truncatingHead;
  if (!truncates || line()->width() <= width) return line();
  const NSString text(stringValue_);
  const auto lineOf = [&](std::size_t kept) {
    return make<CTLine>(shortened(text.units(), kept, lineBreakMode_), font_->face());
  };
  std::size_t fits = 0;
  std::size_t tooMuch = text.length();
  while (tooMuch - fits > 1) {
    const std::size_t middle = fits + (tooMuch - fits) / 2;
    (lineOf(middle)->width() <= width ? fits : tooMuch) = middle;
  }
  return lineOf(fits);
}

void NSTextField::draw(NSRect) {
  const auto context = NSGraphicsContext::current()->cgContext();
  const auto inside = isDark() ? NSColor::white() : NSColor::black();
  if (drawsBackground_ && backgroundColor_) {
    context->setFillColor(backgroundColor_->cgColor());
    context->fill(bounds());
  }
  if (bezeled_ || bordered_) {
    context->setStrokeColor(inside->withAlphaComponent(0.25)->cgColor());
    context->setLineWidth(1);
    context->addRect(bounds().insetBy(0.5, 0.5));
    context->strokePath();
  }
  const CGFloat width = bounds().width() - 2 * padding;
  const auto shown = lineFitting(width);
  const bool isRightToLeft = userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  const bool isAtRight =
      alignment_ == NSTextAlignment::right || (alignment_ == NSTextAlignment::natural && isRightToLeft);
  CGFloat start = padding;
  if (alignment_ == NSTextAlignment::center) start += (width - shown->width()) / 2;
  if (isAtRight) start += width - shown->width();
  const CGFloat baseline = (bounds().height() + shown->ascent() - shown->descent()) / 2;
  context->clip(bounds());
  shown->draw(*context, {start, baseline}, *(textColor_ ? textColor_ : inside)->cgColor());
}

}  // namespace bkuk
