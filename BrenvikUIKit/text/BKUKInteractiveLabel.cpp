#include "BrenvikUIKit/text/BKUKInteractiveLabel.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "BrenvikUIKit/interaction/BKUKKeyCodes.h"
#include "BrenvikUIKit/text/RangeFinder.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSCursor.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/appkit/window/FocusRing.h"

namespace bkuk {

namespace {

using Link = BKUKInteractiveLabel::LinkFrame;

constexpr CGFloat ringRadius = 3;  // points
constexpr CGFloat lowestRing = 2;  // inside, around text however small

// Where links lie in a text of which pieces were replaced.
RangeFinder::Ranges linkRanges(const NSAttributedString& text) {
  RangeFinder::Ranges ranges;
  text.enumerateAttribute(NSLinkAttributeName, {0, text.length()}, NSAttributedString::Options::none,
                          [&](const NSAttributeValue* value, NSRange range, bool&) {
                            const auto* name = value ? value->string() : nullptr;
                            if (name) ranges[name->utf8()] = range;
                          });
  return ranges;
}

bool isKey(const NSEvent& event, BKUKKeyCodes key) { return event.keyCode() == rawValue(key); }

}  // namespace

// Links

Link::LinkFrame(BKUKInteractiveLabel* label, std::string identifier, NSRange range, Action action)
    : TextFrame(label), identifier_(std::move(identifier)), range_(range), action_(std::move(action)) {}

std::string Link::accessibilityLabel() const {
  const auto label = view();
  const auto text = label ? label->attributedStringValue() : nullptr;
  return text && NSMaxRange(range_) <= text->length() ? text->string().substring(range_).utf8()
                                                      : std::string();
}

std::optional<NSRect> Link::accessibilityFrameInParentSpace() const {
  const auto label = view();
  if (!label) return std::nullopt;
  NSRect frame = NSRect::null;
  for (const auto& rect : label->rects(*this)) frame = frame.united(rect);
  if (frame.isNull()) return std::nullopt;
  return frame;
}

bool Link::isAccessibilityFocused() const {
  const auto label = view();
  return label && label->hasKeyboard() && label->focusedLink() == this;
}

bool Link::accessibilityPerformFocus() {
  const auto label = view();
  return label && label->focus(*this);
}

bool Link::accessibilityPerformPress() {
  const auto label = view();
  return label && label->press(*this);
}

Ref<BKUKInteractiveLabel> BKUKInteractiveLabel::label(std::string_view text) {
  auto label = make<BKUKInteractiveLabel>();
  label->setStringValue(text);
  return label;
}

Ref<BKUKInteractiveLabel> BKUKInteractiveLabel::label(std::string_view text, const BKUKFontSettings& style) {
  auto styled = label(text);
  styled->apply(style);
  return styled;
}

void BKUKInteractiveLabel::addLink(NSRange range, std::string identifier, Action action) {
  const auto text = attributedStringValue();
  const std::size_t length = text ? text->length() : 0;
  const bool isInside = range.location <= length && range.length <= length - range.location;
  if (!isInside || range.length == 0) return;
  linkedText_ = text;
  links_[range] = make<LinkFrame>(this, std::move(identifier), range, std::move(action));
  noteFocusRingMaskChanged();
  NSAccessibilityPostNotification(*this, NSAccessibilityLayoutChangedNotification);
}

void BKUKInteractiveLabel::removeAllLinks() {
  if (links_.empty()) return;
  const Ref<BKUKInteractiveLabel> self(this);
  const bool hadKeyboard = hasKeyboard();
  links_.clear();
  focused_ = 0;
  if (cursored_) showArrow();
  noteFocusRingMaskChanged();
  NSAccessibilityPostNotification(*this, NSAccessibilityLayoutChangedNotification);
  if (hadKeyboard) window()->makeFirstResponder(nullptr);
}

void BKUKInteractiveLabel::textDidChange() {
  if (attributedStringValue() != linkedText_) removeAllLinks();
}

bool BKUKInteractiveLabel::setMarkup(std::string_view markup,
                                     const std::map<std::string, BKUKFontSettings>& stylesToTags,
                                     const BKUKFontSettings& defaultStyle,
                                     const std::map<std::string, Action>& linkActions) {
  auto styles = stylesToTags;
  std::vector<NSString> names;
  for (const auto& [name, action] : linkActions) {
    styles.emplace(name, defaultStyle.withUnderline(NSUnderlineStyle::single, nullptr));
  }
  names.reserve(styles.size());
  for (const auto& [name, style] : styles) names.emplace_back(name);
  const NSString source(markup);
  const auto text = BKUKAttributedTextXMLFactory::createAttributedText(source, styles, defaultStyle);
  const auto ranges = RangeFinder::ranges(source, names);
  if (!text || !ranges) {
    setAttributedStringValue(make<NSAttributedString>(source, defaultStyle.fontAttributes()));
    return false;
  }
  for (const auto& [name, action] : linkActions) {
    const auto range = ranges->find(name);
    if (range != ranges->end()) text->addAttribute(NSLinkAttributeName, NSString(name), range->second);
  }
  setAttributedStringValue(text);
  const bool isAsRead = attributedStringValue()->string() == text->string();
  for (const auto& [name, range] : isAsRead ? *ranges : linkRanges(*attributedStringValue())) {
    const auto action = linkActions.find(name);
    if (action != linkActions.end()) addLink(range, name, action->second);
  }
  return true;
}

std::vector<NSRect> BKUKInteractiveLabel::rects(const LinkFrame& link) const {
  updateContainer();
  auto found = textLayoutManager()->rects(link.range(), *textContainer());
  for (auto& rect : found) rect = rect.offsetBy(0, drawnTextTop());
  std::erase_if(found, [](const NSRect& rect) { return rect.isEmpty(); });
  return found;
}

bool BKUKInteractiveLabel::press(const LinkFrame& link) {
  const Ref<BKUKInteractiveLabel> self(this);
  const Ref<const LinkFrame> pressed(&link);
  const auto action = link.action();
  if (!action) return false;
  action(pressed->identifier());
  return true;
}

// Pointer

void BKUKInteractiveLabel::updateTrackingAreas() {
  BKUKLabel::updateTrackingAreas();
  if (trackingArea_) removeTrackingArea(trackingArea_);
  trackingArea_ = make<NSTrackingArea>(bounds(),
                                       NSTrackingMouseEnteredAndExited | NSTrackingMouseMoved |
                                           NSTrackingActiveInKeyWindow | NSTrackingInVisibleRect,
                                       this);
  addTrackingArea(trackingArea_);
}

Ref<Link> BKUKInteractiveLabel::linkAt(const NSEvent& event) {
  const NSPoint point = convertPointFrom(event.locationInWindow(), nullptr);
  const std::size_t index = characterIndex(point, true);
  for (const auto& [range, link] : links_) {
    if (NSLocationInRange(index, range)) return link;
  }
  return nullptr;
}

void BKUKInteractiveLabel::mouseMoved(NSEvent& event) {
  const bool isOverLink = linkAt(event) != nullptr;
  if (!isOverLink && cursored_) showArrow();
  if (!isOverLink || cursored_) return;
  NSCursor::pointingHand()->set();
  cursored_ = true;
}

void BKUKInteractiveLabel::mouseExited(NSEvent& event) {
  BKUKLabel::mouseExited(event);
  if (cursored_) showArrow();
}

void BKUKInteractiveLabel::showArrow() {
  NSCursor::arrow()->set();
  cursored_ = false;
}

void BKUKInteractiveLabel::mouseDown(NSEvent& event) {
  const Ref<BKUKInteractiveLabel> self(this);
  if (const auto link = linkAt(event)) press(*link);
  if (cursored_) showArrow();
  BKUKLabel::mouseDown(event);
}

// Keyboard

bool BKUKInteractiveLabel::hasKeyboard() const {
  const auto window = this->window();
  return window && window->firstResponder().get() == this;
}

Ref<Link> BKUKInteractiveLabel::focusedLink() const {
  if (links_.empty()) return nullptr;
  const std::size_t index = std::min(focused_, links_.size() - 1);
  return std::next(links_.begin(), static_cast<std::ptrdiff_t>(index))->second;
}

bool BKUKInteractiveLabel::becomeFirstResponder() {
  if (!BKUKLabel::becomeFirstResponder()) return false;
  // Whoever walks backwards comes in at the last link.
  const auto& event = NSApplication::shared().currentEvent();
  const bool isWalking = event && event->type() == NSEventType::keyDown && event->keyCode() == NSKeyCode::tab;
  if (isWalking) focused_ = event->hasModifier(NSEventModifierFlagShift) ? links_.size() - 1 : 0;
  return true;
}

bool BKUKInteractiveLabel::focus(const LinkFrame& link) {
  const auto found = links_.find(link.range());
  if (found == links_.end() || found->second != &link) return false;
  const auto window = this->window();
  if (!window || isHiddenOrHasHiddenAncestor()) return false;
  focused_ = static_cast<std::size_t>(std::distance(links_.begin(), found));
  if (!window->isKeyWindow()) window->makeKey();
  if (!hasKeyboard() && !window->makeFirstResponder(this)) return false;
  focusedLinkDidChange();
  return hasKeyboard();
}

void BKUKInteractiveLabel::focusedLinkDidChange() {
  noteFocusRingMaskChanged();
  const auto link = focusedLink();
  if (!link) return;
  if (const auto frame = link->accessibilityFrameInParentSpace()) scrollToVisible(*frame);
  NSAccessibilityPostNotification(*link, NSAccessibilityFocusedUIElementChangedNotification);
}

bool BKUKInteractiveLabel::moveFocus(bool forward) {
  const bool isAtEnd = forward ? focused_ + 1 >= links_.size() : focused_ == 0;
  if (isAtEnd) return false;
  focused_ += forward ? 1 : static_cast<std::size_t>(-1);
  focusedLinkDidChange();
  return true;
}

bool BKUKInteractiveLabel::isBackwardArrow(const NSEvent& event) const {
  const bool isMirrored = userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  return isKey(event, BKUKKeyCodes::arrow_up) ||
         isKey(event, isMirrored ? BKUKKeyCodes::arrow_rigt : BKUKKeyCodes::arrow_left);
}

bool BKUKInteractiveLabel::isForwardArrow(const NSEvent& event) const {
  const bool isMirrored = userInterfaceLayoutDirection() == NSUserInterfaceLayoutDirection::rightToLeft;
  return isKey(event, BKUKKeyCodes::arrow_down) ||
         isKey(event, isMirrored ? BKUKKeyCodes::arrow_left : BKUKKeyCodes::arrow_rigt);
}

void BKUKInteractiveLabel::keyDown(NSEvent& event) {
  const Ref<BKUKInteractiveLabel> self(this);
  const bool isTab = event.keyCode() == NSKeyCode::tab;
  const bool isBack = isTab ? event.hasModifier(NSEventModifierFlagShift) : isBackwardArrow(event);
  const bool isForward = isTab ? !isBack : isForwardArrow(event);
  const bool presses = isKey(event, BKUKKeyCodes::space) || isKey(event, BKUKKeyCodes::enter_main) ||
                       isKey(event, BKUKKeyCodes::enter_num);
  if ((isBack || isForward) && moveFocus(isForward)) return;
  const auto link = focusedLink();
  if (presses && link && !event.isARepeat()) {
    press(*link);
    return;
  }
  if (!presses) BKUKLabel::keyDown(event);
}

// Lower than the lines, so that the ring does not cover those above and below.
std::vector<NSRect> BKUKInteractiveLabel::focusRingMask() const {
  const auto link = focusedLink();
  if (!link) return {};
  auto mask = rects(*link);
  for (auto& rect : mask) {
    rect = rect.insetBy(0, std::min(FocusRing::ringWidth, (rect.height() - lowestRing) / 2));
  }
  return mask;
}

NSRect BKUKInteractiveLabel::focusRingMaskBounds() {
  NSRect bounds = NSRect::null;
  for (const auto& rect : focusRingMask()) bounds = bounds.united(rect);
  return bounds.isNull() ? NSRect{} : bounds;
}

void BKUKInteractiveLabel::drawFocusRingMask() {
  NSColor::black()->setFill();
  for (const auto& rect : focusRingMask()) {
    NSBezierPath::roundedRect(rect, ringRadius, ringRadius)->fill();
  }
}

// Assistive clients

std::vector<Ref<NSAccessibility>> BKUKInteractiveLabel::accessibilityChildren() const {
  std::vector<Ref<NSAccessibility>> children;
  for (const auto& [range, link] : links_) children.push_back(link);
  return children;
}

Ref<NSAccessibility> BKUKInteractiveLabel::accessibilityFocusedUIElement() const {
  if (const auto link = focusedLink()) return link;
  return BKUKLabel::accessibilityFocusedUIElement();
}

}  // namespace bkuk
