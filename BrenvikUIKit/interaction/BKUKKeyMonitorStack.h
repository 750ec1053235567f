#pragma once

#include <vector>

#include "BrenvikUIKit/interaction/BKUKKeyMonitor.h"
#include "platform/appkit/NSEventMonitor.h"
#include "platform/appkit/NSWindow.h"

namespace bkuk {

/// The key monitors of one window, the one pushed last on top.
///
/// A key-down is offered from the top down. A monitor below is asked only where those above let the key
/// pass; what nobody consumes goes on to the window as usual. The walk is over the monitors that were there
/// when the key came.
class BKUKKeyMonitorStack : public NSObject {
 public:
  /// Serves the keys of that window; of every window when it is absent or gone. The window owns the stack.
  explicit BKUKKeyMonitorStack(NSWindow* window) : window_(window) {}
  ~BKUKKeyMonitorStack() override;

  /// On top; the same monitor may stand in the stack several times.
  void append(Ref<BKUKKeyMonitor> monitor);
  /// Takes out the lowest entry of that very monitor.
  void remove(const BKUKKeyMonitor* monitor);
  void removeAll();

  /// Bottom first.
  [[nodiscard]] const std::vector<Ref<BKUKKeyMonitor>>& stack() const { return stack_; }
  /// Installed while the stack is not empty.
  [[nodiscard]] const Ref<NSEventMonitor>& monitor() const { return monitor_; }
  [[nodiscard]] Ref<NSWindow> window() const { return window_.lock(); }

  [[nodiscard]] std::string className() const override { return "BKUKKeyMonitorStack"; }

 private:
  [[nodiscard]] bool serves(const NSEvent& event) const;
  [[nodiscard]] bool consumes(NSEvent& event) const;
  void uninstall();

  std::vector<Ref<BKUKKeyMonitor>> stack_;
  Ref<NSEventMonitor> monitor_;
  Weak<NSWindow> window_;
};

}  // namespace bkuk
