#include "host/support/EventSource.h"

#include <algorithm>
#include <utility>

namespace bkuk::host {

EventSources::EventSources(std::vector<EventSource*> sources) : sources_(std::move(sources)) {}

bool EventSources::hasEvent() const {
  return std::ranges::any_of(sources_, [](const auto* source) { return source->hasEvent(); });
}

bool EventSources::dispatch() const {
  for (auto* source : sources_) source->dispatchBegins();
  return std::ranges::any_of(sources_, [](auto* source) { return source->dispatch(); });
}

void EventSources::turnEnds() const {
  for (auto* source : sources_) source->turnEnds();
}

}  // namespace bkuk::host
