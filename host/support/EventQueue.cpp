#include "host/support/EventQueue.h"

#include <utility>

namespace bkuk::host {

namespace {

bool isMove(const PointerEvent& event) { return event.kind == PointerEvent::Kind::move; }

// Pairs of events of which the second says all that still matters.
struct Outdates {
  bool operator()(const PointerEvent& old, const PointerEvent& fresh) const {
    return isMove(old) && isMove(fresh) && old.button == fresh.button && old.modifiers == fresh.modifiers;
  }
  bool operator()(const ExposeEvent& old, const ExposeEvent& fresh) const {
    return old.exposed == fresh.exposed;
  }
  bool operator()(const FrameEvent&, const FrameEvent&) const { return true; }
  bool operator()(const ScaleEvent&, const ScaleEvent&) const { return true; }
  template <typename Old, typename Fresh>
  bool operator()(const Old&, const Fresh&) const {
    return false;
  }
};

}  // namespace

void EventQueue::push(Window& window, WindowClient& client, WindowEvent event) {
  const bool replaces = !entries_.empty() && entries_.back().window == &window &&
                        std::visit(Outdates{}, entries_.back().event, event);
  if (replaces) {
    entries_.back().event = std::move(event);
  } else {
    entries_.push_back({&window, &client, std::move(event)});
  }
}

bool EventQueue::dispatch() {
  if (entries_.empty()) return false;
  const Entry entry = std::move(entries_.front());
  entries_.pop_front();
  entry.client->handleEvent(entry.event);
  return true;
}

void EventQueue::drop(const Window& window) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.window == &window; });
}

}  // namespace bkuk::host
