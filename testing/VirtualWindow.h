#pragma once

#include <string>
#include <vector>

#include "host/Window.h"
#include "host/support/PointerTracker.h"

namespace bkuk {

class VirtualDesktop;

/// A window of the virtual host. Lives as long as the library's window that it stands for.
///
/// The calls that play the user return when the library has dealt with what they caused. They reach the
/// library whether the window is shown or not, so that a test must not forget to show it.
class VirtualWindow final : public host::Window {
 public:
  VirtualWindow(VirtualDesktop& desktop, const host::WindowOptions& options, host::WindowClient& client);
  ~VirtualWindow() override;

  // The user's pointer. Positions are in points from the upper left corner of the content; the pointer
  // enters and leaves by itself as it is moved, a drag holds it in the window until the release.

  void movePointer(host::Point position);
  /// Takes the pointer off every window.
  void leavePointer();
  void press(host::PointerButton button = host::PointerButton::left);
  void release(host::PointerButton button = host::PointerButton::left);
  /// Moves there, presses and releases.
  void click(host::Point position, host::PointerButton button = host::PointerButton::left);
  /// Two clicks within the time of a double click.
  void doubleClick(host::Point position);
  /// Presses at one position, moves in a few steps and releases at the other. Ends where the window does.
  void drag(host::Point from, host::Point to);
  /// Positive amounts move the content right and down.
  void scroll(double deltaX, double deltaY);

  // The user's keyboard

  /// Held from now on, with every event; tells the library of the change.
  void setModifiers(const host::Modifiers& modifiers);
  void pressKey(std::uint16_t keyCode, std::string_view characters = {}, bool isRepeat = false);
  void releaseKey(std::uint16_t keyCode, std::string_view characters = {});
  /// Presses and releases.
  void typeKey(std::uint16_t keyCode, std::string_view characters = {});

  // The desktop

  /// Gives the keyboard to this window, or takes it from it.
  void setFocused(bool isFocused);
  /// As when the user moves or sizes the window.
  void changeFrame(const host::Rect& frame);
  void setScale(double scale);
  /// As when the desktop covers the whole window and shows it again.
  void setExposed(bool isExposed);
  /// Asks to close the window, as its close button does.
  void requestClose();
  /// Dismisses a popup.
  void dismiss();

  // What the library made of it

  /// What the desktop shows: all that was presented so far.
  [[nodiscard]] const host::Bitmap& image() const { return image_; }
  /// The premultiplied 0xAARRGGBB pixel shown at a device position; 0 outside the window.
  [[nodiscard]] std::uint32_t pixel(int x, int y) const;
  [[nodiscard]] int presentCount() const { return presentCount_; }
  /// The damage of all presents since `forgetPresents`, in device pixels; of very many, what surrounds those
  /// that came first.
  [[nodiscard]] const std::vector<host::PixelRect>& presentedDamage() const { return presentedDamage_; }
  /// Counts and collects from nothing again.
  void forgetPresents();

  [[nodiscard]] const host::WindowOptions& options() const { return options_; }
  [[nodiscard]] const std::string& title() const { return title_; }
  [[nodiscard]] host::CursorShape cursor() const { return cursor_; }
  [[nodiscard]] double opacity() const { return opacity_; }
  [[nodiscard]] bool hasPointerGrab() const { return hasPointerGrab_; }
  [[nodiscard]] host::Size minimumSize() const { return minimumSize_; }
  [[nodiscard]] host::Size maximumSize() const { return maximumSize_; }
  /// Where an assistive client begins to read.
  [[nodiscard]] host::AccessibilityId accessibilityElement() const { return client_.accessibilityElement(); }
  /// How often the library raised the window.
  [[nodiscard]] int raiseCount() const { return raiseCount_; }

  // Window

  void show() override;
  void hide() override;
  [[nodiscard]] bool isVisible() const override { return isVisible_; }
  void setFrame(const host::Rect& frame) override;
  [[nodiscard]] host::Rect frame() const override { return frame_; }
  void setSizeLimits(host::Size minimum, host::Size maximum) override;
  void setTitle(std::string_view utf8) override { title_ = utf8; }
  void raise() override { ++raiseCount_; }
  void activate() override;
  void setPointerGrab(bool on) override { hasPointerGrab_ = on; }
  void setCursor(host::CursorShape shape) override { cursor_ = shape; }
  void setOpacity(double opacity) override { opacity_ = opacity; }
  [[nodiscard]] double scale() const override { return scale_; }
  [[nodiscard]] host::PixelSize pixelSize() const override;
  [[nodiscard]] host::Point pointerPosition() const override;
  void present(const host::Bitmap& image, std::span<const host::PixelRect> damage) override;

 private:
  friend class VirtualDesktop;

  void push(host::WindowEvent event);
  void pushIfAny(const std::optional<host::PointerEvent>& event);
  void pushKey(host::KeyEvent::Kind kind, std::uint16_t keyCode, std::string_view characters, bool isRepeat);
  // Queue without running turns, for the steps of one call.
  void queueMove(host::Point position);
  void queuePress(host::PointerButton button);
  void queueRelease(host::PointerButton button);
  void settle();
  void tellFocus(bool isFocused) { push(host::FocusEvent{isFocused}); }
  void tellLeave();
  void tellEnter();
  [[nodiscard]] bool contains(host::Point position) const;
  [[nodiscard]] host::PointerSample sample() const;

  VirtualDesktop& desktop_;
  host::WindowClient& client_;
  host::WindowOptions options_;
  host::Rect frame_;
  host::Size minimumSize_;
  host::Size maximumSize_;
  double scale_;
  double opacity_ = 1;
  bool isVisible_ = false;
  bool isExposed_ = true;
  bool hasPointerGrab_ = false;
  int raiseCount_ = 0;
  int presentCount_ = 0;
  std::string title_;
  host::CursorShape cursor_ = host::CursorShape::arrow;
  host::Modifiers modifiers_;
  host::PointerTracker pointer_;
  host::Bitmap image_;
  std::vector<host::PixelRect> presentedDamage_;
};

}  // namespace bkuk
