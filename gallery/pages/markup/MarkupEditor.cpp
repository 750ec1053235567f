#include "gallery/pages/markup/MarkupEditor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "BrenvikUIKit/interaction/BKUKKeyCodes.h"
#include "gallery/cards/LabelText.h"
#include "platform/appkit/NSKeyCode.h"
#include "platform/foundation/CGRoundedUp.h"

namespace bkuk::gallery {

namespace {

constexpr CGFloat padding = 12;
constexpr CGFloat radius = 8;
constexpr CGFloat caretWidth = 2;
constexpr CGFloat lowest = 84;
constexpr double fontSize = 15;

// Behind the text, so that there is a glyph wherever the caret can be.
constexpr std::u16string_view endMark = u"\u200B";

bool isSecondHalf(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Whether the event types something, rather than to command.
bool isTyping(const NSEvent& event) {
  if (event.hasModifier(NSEventModifierFlagControl) || event.hasModifier(NSEventModifierFlagCommand))
    return false;
  const auto& typed = event.characters();
  return !typed.empty() && static_cast<unsigned char>(typed.front()) >= ' ' && typed.front() != '\x7F';
}

}  // namespace

void MarkupEditor::didInit() {
  NSView::didInit();
  setAccessibilityLabel("Markup");
  replace({0, 0}, {});
  addTrackingArea(make<NSTrackingArea>(
      NSRect(), NSTrackingMouseEnteredAndExited | NSTrackingActiveInKeyWindow | NSTrackingInVisibleRect,
      this));
}

// Text

void MarkupEditor::setText(std::string_view text) { replace({0, text_.length()}, NSString(text)); }

void MarkupEditor::replace(NSRange range, const NSString& typed) {
  text_.replaceCharacters(range, typed.units());
  caret_ = range.location + typed.length();
  auto shown = text_;
  shown.append(endMark);
  stack_.storage()->setAttributedString(
      NSAttributedString(std::move(shown), cardText(fontSize).fontAttributes()));
  setNeedsDisplay(true);
  NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
  if (changed_) changed_(text());
}

void MarkupEditor::moveCaret(std::size_t to) {
  const bool isInsidePair = to < text_.length() && isSecondHalf(text_.characterAt(to));
  caret_ = isInsidePair ? to - 1 : std::min(to, text_.length());
  setNeedsDisplay(true);
}

std::size_t MarkupEditor::before(std::size_t index) const {
  if (index == 0) return 0;
  return index > 1 && isSecondHalf(text_.characterAt(index - 1)) ? index - 2 : index - 1;
}

std::size_t MarkupEditor::behind(std::size_t index) const {
  if (index == text_.length()) return index;
  const std::size_t next = index + 1;
  return next < text_.length() && isSecondHalf(text_.characterAt(next)) ? next + 1 : next;
}

// Events

bool MarkupEditor::becomeFirstResponder() {
  showFocus(true);
  scrollToVisible(bounds());
  return true;
}

bool MarkupEditor::resignFirstResponder() {
  showFocus(false);
  return true;
}

void MarkupEditor::showFocus(bool focused) {
  focused_ = focused;
  setNeedsDisplay(true);
}

void MarkupEditor::mouseEntered(NSEvent&) { NSCursor::IBeam()->set(); }

void MarkupEditor::mouseExited(NSEvent&) { NSCursor::arrow()->set(); }

void MarkupEditor::mouseDown(NSEvent& event) {
  const NSPoint point = convertPointFrom(event.locationInWindow(), nullptr);
  updateLayout();
  CGFloat fraction = 0;
  const NSPoint inText{point.x - padding, point.y - padding};
  const auto index = stack_.manager()->characterIndex(inText, *stack_.container(), &fraction);
  moveCaret(std::min(index, text_.length()));
  if (fraction > 0.5) moveCaret(behind(caret_));
}

void MarkupEditor::keyDown(NSEvent& event) {
  switch (event.keyCode()) {
    case rawValue(BKUKKeyCodes::arrow_left):
      return moveCaret(before(caret_));
    case rawValue(BKUKKeyCodes::arrow_rigt):
      return moveCaret(behind(caret_));
    case NSKeyCode::home:
      return moveCaret(0);
    case NSKeyCode::end:
      return moveCaret(text_.length());
    case NSKeyCode::backspace:
      return replace({before(caret_), caret_ - before(caret_)}, {});
    case rawValue(BKUKKeyCodes::enter_main):
    case rawValue(BKUKKeyCodes::enter_num):
      return replace({caret_, 0}, "\n");
    default:
      break;
  }
  if (!isTyping(event)) return NSView::keyDown(event);
  replace({caret_, 0}, NSString(event.characters()));
}

// Layout and drawing

void MarkupEditor::updateLayout() const {
  stack_.setLayout(bounds().width() - 2 * padding, userInterfaceLayoutDirection());
}

CGFloat MarkupEditor::heightForWidth(CGFloat width) const {
  const NSSize text = stack_.measure(width - 2 * padding, NSStringDrawingOptions::usesFontLeading);
  return std::max(lowest, CGRoundedUp(text.height) + 2 * padding);
}

NSRect MarkupEditor::caretRect() const {
  auto& manager = *stack_.manager();
  const NSRect line = manager.lineFragmentUsedRect(caret_);
  const NSRect fragment = manager.lineFragmentRect(caret_);
  const CGFloat x = fragment.minX() + manager.location(caret_).x;
  return {padding + std::round(x), padding + line.minY(), caretWidth, line.height()};
}

void MarkupEditor::draw(NSRect) {
  BKUKTheme::background()->setFill();
  NSBezierPath::roundedRect(bounds(), radius, radius)->fill();
  const CGFloat border = focused_ ? 2 : 1;
  const auto edge = NSBezierPath::roundedRect(bounds().insetBy(border / 2, border / 2), radius - border / 2,
                                              radius - border / 2);
  edge->setLineWidth(border);
  (focused_ ? BKUKTheme::accentHighContrast() : BKUKTheme::onSurfaceLight())->setStroke();
  edge->stroke();
  updateLayout();
  stack_.draw({padding, padding});
  if (!focused_) return;
  BKUKTheme::accent()->setFill();
  NSBezierPath::rect(caretRect())->fill();
}

}  // namespace bkuk::gallery
