#pragma once

#include <memory>
#include <vector>

#include "host/Desktop.h"
#include "host/support/EventQueue.h"

namespace bkuk {

class VirtualLoop;
class VirtualWindow;

/// The windows and screens of a virtual host, and what the user has done to the windows and the library has
/// not been told yet.
class VirtualDesktop final : public host::Desktop {
 public:
  /// `loop` moves on when a call has played the user; it outlives the windows.
  explicit VirtualDesktop(VirtualLoop& loop) : loop_(loop) {}

  void setScreens(std::vector<host::Screen> screens);
  void setScale(double scale) { screens_.front().scale = scale; }
  void setCanPlaceWindows(bool canPlace) { canPlaceWindows_ = canPlace; }
  void setHasDisplay(bool hasDisplay) { hasDisplay_ = hasDisplay; }
  [[nodiscard]] int beepCount() const { return beepCount_; }
  [[nodiscard]] const host::ApplicationIdentity& identity() const { return identity_; }
  /// Oldest first.
  [[nodiscard]] const std::vector<VirtualWindow*>& windows() const { return windows_; }
  [[nodiscard]] host::EventSource& events() { return queue_; }

  [[nodiscard]] std::unique_ptr<host::Window> makeWindow(const host::WindowOptions& options,
                                                         host::WindowClient& client) override;
  [[nodiscard]] std::vector<host::Screen> screens() const override { return screens_; }
  [[nodiscard]] bool canPlaceWindows() const override { return canPlaceWindows_; }
  [[nodiscard]] bool hasDisplay() const override { return hasDisplay_; }
  void beep() override { ++beepCount_; }
  void setIdentity(const host::ApplicationIdentity& identity) override { identity_ = identity; }

 private:
  friend class VirtualWindow;

  void add(VirtualWindow& window) { windows_.push_back(&window); }
  void remove(VirtualWindow& window);
  // The window that has the keyboard, and the one under the pointer.
  void setFocusedWindow(VirtualWindow* window);
  void setPointerWindow(VirtualWindow* window);

  VirtualLoop& loop_;
  host::EventQueue queue_;
  std::vector<VirtualWindow*> windows_;
  VirtualWindow* focusedWindow_ = nullptr;
  VirtualWindow* pointerWindow_ = nullptr;
  host::Point pointer_;  // on the screen
  std::vector<host::Screen> screens_{{{0, 0, 1920, 1080}, {0, 0, 1920, 1080}, 1}};
  bool canPlaceWindows_ = true;
  bool hasDisplay_ = true;
  int beepCount_ = 0;
  host::ApplicationIdentity identity_;
};

}  // namespace bkuk
