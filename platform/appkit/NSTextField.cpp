#include "platform/appkit/NSTextField.h"

#include <cmath>
#include <utility>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSGraphicsContext.h"
#include "platform/appkit/NSTruncatedLine.h"
#include "platform/foundation/NSString.h"

namespace bkuk {

namespace {

constexpr CGFloat padding = 2;  // points on each side
bool isDark() {
  const std::string_view names[] = {NSAppearanceNameAqua, NSAppearanceNameDarkAqua};
  return NSApplication::shared().effectiveAppearance()->bestMatch(names) == NSAppearanceNameDarkAqua;
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
  invalidateIntrinsicContentSize();
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

NSSize NSTextField::intrinsicContentSize() const {
  const auto& text = line();
  return {editable_ ? NSViewNoIntrinsicMetric : std::ceil(text->width()) + 2 * padding,
          std::ceil(text->ascent() + text->descent() + text->leading())};
}

CGFloat NSTextField::firstBaselineOffsetFromTop() const {
  return (bounds().height() + line()->ascent() - line()->descent()) / 2;
}

CGFloat NSTextField::lastBaselineOffsetFromBottom() const {
  return bounds().height() - firstBaselineOffsetFromTop();
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
  if (line()->width() <= width) return line();
  return NSTruncatedLine(NSString(stringValue_), font_->face(), width, lineBreakMode_);
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
  const CGFloat baseline = firstBaselineOffsetFromTop();
  context->clip(bounds());
  shown->draw(*context, {start, baseline}, *(textColor_ ? textColor_ : inside)->cgColor());
}

}  // namespace bkuk
