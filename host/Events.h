#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "host/Geometry.h"

namespace bkuk::host {

enum class PointerButton { none, left, right, middle };

struct Modifiers {
  bool shift = false;
  bool control = false;
  bool option = false;
  bool command = false;
  bool operator==(const Modifiers&) const = default;
};

/// Positions are in points from the upper left corner of the window's content.
struct PointerEvent {
  /// `cancel` ends a press that no release will follow, because the window went away under it.
  enum class Kind { move, press, release, cancel, enter, leave };
  Kind kind = Kind::move;
  Point position{};
  PointerButton button = PointerButton::none;  ///< the one pressed or released; for a move the one held
  Modifiers modifiers{};
  double timestamp = 0;  ///< seconds on the host's clock
  int clickCount = 0;    ///< of a press or release: how many presses in quick succession at one place
};

struct WheelEvent {
  Point position{};
  double deltaX = 0;  ///< points; positive moves the content to the right
  double deltaY = 0;  ///< points; positive moves the content down
  bool precise = false;
  Modifiers modifiers{};
  double timestamp = 0;
};

struct KeyEvent {
  enum class Kind { press, release, modifiersChanged };
  Kind kind = Kind::press;
  std::uint16_t keyCode = 0;           ///< Apple virtual key code, `unknownKeyCode` for keys without one
  std::string characters{};            ///< UTF-8
  std::string unmodifiedCharacters{};  ///< as if only shift were held
  bool isRepeat = false;
  Modifiers modifiers{};
  double timestamp = 0;
};

inline constexpr std::uint16_t unknownKeyCode = 0xFFFF;

/// The window gained or lost the keyboard.
struct FocusEvent {
  bool focused = false;
};

/// Part of the window must be presented again, or nothing of it is visible any longer.
struct ExposeEvent {
  bool exposed = true;
};

/// The content's rectangle in screen points changed: by the user, the window manager or the program.
struct FrameEvent {
  Rect frame{};
};

/// Device pixels per point changed.
struct ScaleEvent {
  double scale = 1;
};

/// The user asked to close the window; it stays until the program hides it.
struct CloseEvent {};

/// A popup was dismissed by a press elsewhere or by the desktop.
struct DismissEvent {};

using WindowEvent = std::variant<PointerEvent, WheelEvent, KeyEvent, FocusEvent, ExposeEvent, FrameEvent,
                                 ScaleEvent, CloseEvent, DismissEvent>;

}  // namespace bkuk::host
