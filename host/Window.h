#pragma once

#include <span>
#include <string_view>

#include "host/AccessibilityTree.h"
#include "host/Bitmap.h"
#include "host/Events.h"
#include "host/Geometry.h"

namespace bkuk::host {

class Window;

enum class WindowKind { normal, tooltip, popup, sheet };

enum class CursorShape { arrow, pointingHand, iBeam };

struct WindowOptions {
  WindowKind kind = WindowKind::normal;
  bool titled = true;
  bool closable = true;
  bool miniaturizable = true;
  bool resizable = true;
  bool translucent = false;  ///< keeps the alpha of what is presented
  bool acceptsFocus = true;
  bool ignoresPointer = false;
  Window* parent = nullptr;  ///< the window that this one belongs to; must outlive it
  Rect frame{};              ///< of the content, in screen points
};

/// Hears what happens to one window. `Loop::dispatchEvent` is the only caller, so a client is never
/// entered from inside one of its own calls to the window. It may destroy the window while it handles.
class WindowClient {
 public:
  virtual ~WindowClient() = default;
  virtual void handleEvent(const WindowEvent& event) = 0;
  /// The window's own element, for the host to read the others from; 0 for a window without any. Asked at any
  /// time, and only while an assistive client listens.
  [[nodiscard]] virtual AccessibilityId accessibilityElement() { return 0; }
};

/// A window of the desktop, hidden when made. Destroying it closes it and drops its queued events.
///
/// Sizes that are not finite, negative or beyond `maxSide` are clamped, never passed on.
class Window {
 public:
  virtual ~Window() = default;

  /// The longest side of a window, in points.
  static constexpr double maxSide = 16000;

  virtual void show() = 0;
  virtual void hide() = 0;
  [[nodiscard]] virtual bool isVisible() const = 0;

  /// The content's rectangle in screen points. Where the desktop does not let programs place windows
  /// only the size counts.
  virtual void setFrame(const Rect& frame) = 0;
  [[nodiscard]] virtual Rect frame() const = 0;
  /// A zero maximum means no limit.
  virtual void setSizeLimits(Size minimum, Size maximum) = 0;
  virtual void setTitle(std::string_view utf8) = 0;

  virtual void raise() = 0;
  /// Asks for the keyboard; a `FocusEvent` tells when it was given.
  virtual void activate() = 0;
  /// While on, presses outside the window come here too, and those outside the program dismiss.
  virtual void setPointerGrab(bool on) = 0;
  virtual void setCursor(CursorShape shape) = 0;
  virtual void setOpacity(double opacity) = 0;

  /// Device pixels per point.
  [[nodiscard]] virtual double scale() const = 0;
  /// The size of the image that `present` expects.
  [[nodiscard]] virtual PixelSize pixelSize() const = 0;
  /// Where the pointer is in this turn of the loop, in points of the content, also when that is outside the
  /// window. Cheap to ask often: a host asks the desktop once in a turn at most.
  [[nodiscard]] virtual Point pointerPosition() const = 0;

  /// Brings the damaged pixels of `image`, which covers the whole content, to the screen. Ignored
  /// while nothing of the window is visible; an `ExposeEvent` follows when it is again.
  virtual void present(const Bitmap& image, std::span<const PixelRect> damage) = 0;
};

}  // namespace bkuk::host
