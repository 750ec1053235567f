#pragma once

#include "host/Desktop.h"
#include "host/qt/desktop/EventClock.h"
#include "host/support/EventQueue.h"
#include "host/support/PointerMemory.h"

namespace bkuk::host {

class QtAccessibility;
class QtApplication;
class QtLoop;

/// Windows and screens of Qt's, and what the desktop has told of the windows.
class QtDesktop final : public Desktop, public EventSource {
 public:
  QtDesktop(QtApplication& application, QtLoop& loop, QtAccessibility& accessibility);

  [[nodiscard]] std::unique_ptr<Window> makeWindow(const WindowOptions& options,
                                                   WindowClient& client) override;
  [[nodiscard]] std::vector<Screen> screens() const override;
  [[nodiscard]] bool canPlaceWindows() const override;
  [[nodiscard]] bool hasDisplay() const override;
  void beep() override;
  void setIdentity(const ApplicationIdentity& identity) override;

  [[nodiscard]] bool hasEvent() const override { return queue_.hasEvent(); }
  bool dispatch() override { return queue_.dispatch(); }
  void dispatchBegins() override;
  void turnEnds() override { pointer_.turnEnds(); }

  // For its windows

  [[nodiscard]] QtApplication& application() { return application_; }
  [[nodiscard]] QtAccessibility& accessibility() { return accessibility_; }
  [[nodiscard]] double now() const;
  /// The date of an event that comes in now with that stamp of the desktop's.
  [[nodiscard]] double dateOf(std::uint64_t milliseconds) { return eventClock_.date(milliseconds, now()); }
  /// Where the pointer is on the screen, in points.
  [[nodiscard]] PointerMemory& pointer() { return pointer_; }
  void push(Window& window, WindowClient& client, WindowEvent event);
  void drop(const Window& window) { queue_.drop(window); }

 private:
  QtApplication& application_;
  QtLoop& loop_;
  QtAccessibility& accessibility_;
  EventClock eventClock_;
  EventQueue queue_;
  PointerMemory pointer_;
};

}  // namespace bkuk::host
