#pragma once

#include <deque>

#include "host/Events.h"
#include "host/Window.h"
#include "host/support/EventSource.h"

namespace bkuk::host {

/// What a host has heard from its desktop and not yet told the windows' clients, oldest first. Belongs
/// to a host, which fills it, and empties it through `dispatch`.
///
/// An event that outdates the one queued last for the same window takes its place: a burst of pointer
/// moves or of sizes costs one delivery.
class EventQueue final : public EventSource {
 public:
  void push(Window& window, WindowClient& client, WindowEvent event);
  [[nodiscard]] bool hasEvent() const override { return !entries_.empty(); }

  /// The oldest event; null when there is none.
  [[nodiscard]] const WindowEvent* next() const {
    return entries_.empty() ? nullptr : &entries_.front().event;
  }
  /// Takes the oldest event out and hands it to its client, which may destroy any window meanwhile.
  bool dispatch() override;

  /// Forgets what is queued for `window`, which is about to go.
  void drop(const Window& window);

 private:
  struct Entry {
    Window* window;
    WindowClient* client;
    WindowEvent event;
  };

  std::deque<Entry> entries_;
};

}  // namespace bkuk::host
