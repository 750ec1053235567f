#include "platform/appkit/window/HostEvents.h"

#include "platform/appkit/NSWindow.h"

namespace bkuk {

NSEventModifierFlags modifierFlagsFromHost(const host::Modifiers& modifiers) {
  return (modifiers.shift ? NSEventModifierFlagShift : 0) |
         (modifiers.control ? NSEventModifierFlagControl : 0) |
         (modifiers.option ? NSEventModifierFlagOption : 0) |
         (modifiers.command ? NSEventModifierFlagCommand : 0);
}

NSPoint baseLocation(const host::Point& point, const NSWindow& window) {
  return {point.x, window.frame().size.height - point.y};
}

namespace {

constexpr NSPoint farOutside{-1e6, -1e6};

std::optional<NSEventType> typeOf(const host::PointerEvent& event) {
  const bool isRight = event.button == host::PointerButton::right;
  const bool isLeft = event.button == host::PointerButton::left;
  switch (event.kind) {
    case host::PointerEvent::Kind::move:
      if (isLeft) return NSEventType::leftMouseDragged;
      return isRight ? NSEventType::rightMouseDragged : NSEventType::mouseMoved;
    case host::PointerEvent::Kind::press:
      if (isLeft) return NSEventType::leftMouseDown;
      break;
    case host::PointerEvent::Kind::release:
    case host::PointerEvent::Kind::cancel:
      if (isLeft) return NSEventType::leftMouseUp;
      if (isRight) return NSEventType::rightMouseUp;
      break;
    case host::PointerEvent::Kind::enter:
    case host::PointerEvent::Kind::leave:
      return NSEventType::mouseMoved;
  }
  return isRight ? std::optional(NSEventType::rightMouseDown) : std::nullopt;
}

NSEventType typeOf(host::KeyEvent::Kind kind) {
  if (kind == host::KeyEvent::Kind::press) return NSEventType::keyDown;
  return kind == host::KeyEvent::Kind::release ? NSEventType::keyUp : NSEventType::flagsChanged;
}

Ref<NSEvent> pointerEvent(const host::PointerEvent& event, NSWindow& window) {
  const auto type = typeOf(event);
  if (!type) return nullptr;
  const bool isCancel = event.kind == host::PointerEvent::Kind::cancel;
  return make<NSEvent>(NSEvent::Fields{
      .type = *type,
      .window = &window,
      .locationInWindow = isCancel ? farOutside : baseLocation(event.position, window),
      .modifierFlags = modifierFlagsFromHost(event.modifiers),
      .timestamp = event.timestamp,
      .clickCount = event.clickCount,
  });
}

Ref<NSEvent> wheelEvent(const host::WheelEvent& event, NSWindow& window) {
  return make<NSEvent>(NSEvent::Fields{
      .type = NSEventType::scrollWheel,
      .window = &window,
      .locationInWindow = baseLocation(event.position, window),
      .modifierFlags = modifierFlagsFromHost(event.modifiers),
      .timestamp = event.timestamp,
      .scrollingDeltaX = event.deltaX,
      .scrollingDeltaY = event.deltaY,
  });
}

Ref<NSEvent> keyEvent(const host::KeyEvent& event, NSWindow& window) {
  return make<NSEvent>(NSEvent::Fields{
      .type = typeOf(event.kind),
      .window = &window,
      .modifierFlags = modifierFlagsFromHost(event.modifiers),
      .timestamp = event.timestamp,
      .keyCode = event.keyCode,
      .characters = event.characters,
      .charactersIgnoringModifiers = event.unmodifiedCharacters,
      .isARepeat = event.isRepeat,
  });
}

}  // namespace

Ref<NSEvent> eventFromHost(const host::WindowEvent& event, NSWindow& window) {
  if (const auto* pointer = std::get_if<host::PointerEvent>(&event)) return pointerEvent(*pointer, window);
  if (const auto* wheel = std::get_if<host::WheelEvent>(&event)) return wheelEvent(*wheel, window);
  if (const auto* key = std::get_if<host::KeyEvent>(&event)) return keyEvent(*key, window);
  return nullptr;
}

}  // namespace bkuk
