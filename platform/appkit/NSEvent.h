#pragma once

#include <cstdint>
#include <string>

#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSWindow;

enum class NSEventType : std::uint8_t {
  leftMouseDown = 1,
  leftMouseUp = 2,
  rightMouseDown = 3,
  rightMouseUp = 4,
  mouseMoved = 5,
  leftMouseDragged = 6,
  rightMouseDragged = 7,
  mouseEntered = 8,
  mouseExited = 9,
  keyDown = 10,
  keyUp = 11,
  flagsChanged = 12,
  cursorUpdate = 17,
  scrollWheel = 22,
};

/// A set of event types, one bit each.
using NSEventMask = std::uint64_t;

[[nodiscard]] constexpr NSEventMask NSEventMaskFromType(NSEventType type) {
  return NSEventMask{1} << static_cast<unsigned>(type);
}

/// A set of modifier keys.
using NSEventModifierFlags = std::uint32_t;
inline constexpr NSEventModifierFlags NSEventModifierFlagShift = 1U << 17;
inline constexpr NSEventModifierFlags NSEventModifierFlagControl = 1U << 18;
inline constexpr NSEventModifierFlags NSEventModifierFlagOption = 1U << 19;
inline constexpr NSEventModifierFlags NSEventModifierFlagCommand = 1U << 20;

/// What happened once to the pointer or the keyboard. Immutable.
class NSEvent : public NSObject {
 public:
  /// The values of an event; those that its type has no use for stay as they are here.
  struct Fields {
    NSEventType type = NSEventType::mouseMoved;
    Ref<NSWindow> window{};      ///< absent for events without one
    NSPoint locationInWindow{};  ///< base coordinates of the window, points
    NSEventModifierFlags modifierFlags = 0;
    double timestamp = 0;                       ///< seconds on the host's clock
    int clickCount = 0;                         ///< of a press or release
    std::uint16_t keyCode = 0;                  ///< Apple virtual key code
    std::string characters{};                   ///< UTF-8
    std::string charactersIgnoringModifiers{};  ///< as if only shift were held
    bool isARepeat = false;
    CGFloat scrollingDeltaX = 0;   ///< points, positive to the right
    CGFloat scrollingDeltaY = 0;   ///< points, positive down
    Ref<NSObject> trackingArea{};  ///< of entered, exited and cursor updates
  };

  explicit NSEvent(Fields fields);
  ~NSEvent() override;

  // Events come by the hundred in a second and go at once: a few places for them are kept, so that
  // dispatch allocates nothing. Main thread only.
  [[nodiscard]] static void* operator new(std::size_t size);
  static void operator delete(void* place, std::size_t size) noexcept;

  [[nodiscard]] NSEventType type() const { return fields_.type; }
  [[nodiscard]] const Ref<NSWindow>& window() const { return fields_.window; }
  [[nodiscard]] NSPoint locationInWindow() const { return fields_.locationInWindow; }
  [[nodiscard]] NSEventModifierFlags modifierFlags() const { return fields_.modifierFlags; }
  [[nodiscard]] double timestamp() const { return fields_.timestamp; }
  [[nodiscard]] int clickCount() const { return fields_.clickCount; }
  [[nodiscard]] std::uint16_t keyCode() const { return fields_.keyCode; }
  [[nodiscard]] const std::string& characters() const { return fields_.characters; }
  [[nodiscard]] const std::string& charactersIgnoringModifiers() const {
    return fields_.charactersIgnoringModifiers;
  }
  [[nodiscard]] bool isARepeat() const { return fields_.isARepeat; }
  [[nodiscard]] CGFloat scrollingDeltaX() const { return fields_.scrollingDeltaX; }
  [[nodiscard]] CGFloat scrollingDeltaY() const { return fields_.scrollingDeltaY; }
  [[nodiscard]] const Ref<NSObject>& trackingArea() const { return fields_.trackingArea; }
  [[nodiscard]] bool hasModifier(NSEventModifierFlags flag) const { return (modifierFlags() & flag) != 0; }

 private:
  Fields fields_;
};

}  // namespace bkuk
