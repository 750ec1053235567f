#pragma once

#include <functional>
#include <memory>

class QObject;

namespace peer {

/// Lets an X server finish all that it was sent, so that its part of a frame is on the wall too. Nothing on
/// the offscreen platform.
void waitForDisplay();

/// Whether the desktop shows the program's only window.
[[nodiscard]] bool isWindowExposed();

/// The desktop's pointer over the program's only window, which must be shown.
class Pointer {
 public:
  using Condition = std::function<bool()>;

  /// `turnUntil` waits for events, handles them and paints what they changed, until the condition holds.
  explicit Pointer(std::function<void(const Condition&)> turnUntil);
  ~Pointer();

  /// To a place in the window, in pixels from its upper left corner. Returns when the motion has been handled
  /// and its pixels are there. The pointer must not be there already.
  void move(int x, int y);

 private:
  class Motions;

  std::function<void(const Condition&)> turnUntil_;
  std::unique_ptr<Motions> motions_;
};

}  // namespace peer
