#pragma once

#include <functional>

#include "platform/appkit/NSEvent.h"

namespace bkuk {

/// Sees the process's events before they are dispatched.
///
/// A monitor that is added while an event is with the monitors waits for the next one; one that is
/// removed is not called again, not even for the same event.
class NSEventMonitor : public NSObject {
 public:
  /// Answers the event to go on with: the same, another one, or none to drop it.
  using Handler = std::function<Ref<NSEvent>(NSEvent& event)>;

  /// Installs a monitor for the events in `mask`. It stays until it is removed; the answered object is
  /// its token.
  static Ref<NSEventMonitor> addLocalMonitorForEvents(NSEventMask mask, Handler handler);

  /// Harmless for a monitor that is removed already.
  static void removeMonitor(const Ref<NSEventMonitor>& monitor);

  /// What the monitors, in the order of their installation, make of `event`: the event to dispatch, or
  /// none. The application calls it for each event that it sends.
  [[nodiscard]] static Ref<NSEvent> filter(Ref<NSEvent> event);

  NSEventMonitor(NSEventMask mask, Handler handler) : mask_(mask), handler_(std::move(handler)) {}

 private:
  NSEventMask mask_;
  Handler handler_;
  bool removed_ = false;
};

}  // namespace bkuk
