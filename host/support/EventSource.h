#pragma once

#include <vector>

namespace bkuk::host {

/// Something that collects what has happened, for the library to be told of one at a time: events of windows,
/// changed settings, wishes of assistive clients. A host's loop asks its sources in turn.
class EventSource {
 public:
  virtual ~EventSource() = default;
  [[nodiscard]] virtual bool hasEvent() const = 0;
  /// Tells the library of the oldest, and forgets it first. False when there was none.
  virtual bool dispatch() = 0;

  /// The loop is about to tell the library of one event, of this source or of another.
  virtual void dispatchBegins() {}
  /// The library has dealt with a turn.
  virtual void turnEnds() {}
};

/// The sources of a host, the most urgent first. They must outlive it.
class EventSources {
 public:
  EventSources() = default;
  explicit EventSources(std::vector<EventSource*> sources);

  [[nodiscard]] bool hasEvent() const;
  /// Has the first source that has any tell of its oldest event. False when none has.
  bool dispatch() const;
  void turnEnds() const;

 private:
  std::vector<EventSource*> sources_;
};

}  // namespace bkuk::host
