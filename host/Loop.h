#pragma once

#include <optional>

namespace bkuk::host {

/// The library's run loop, as a host sees it.
class LoopClient {
 public:
  virtual ~LoopClient() = default;
  /// One turn: queued blocks, due timers, one event, commit. The host calls it when another
  /// library's loop runs and there is something to do.
  virtual void turn() = 0;
};

/// Time, the desktop's events, and sleep while there are none. Main thread, but for `wake`.
///
/// The library drives: turn by turn it asks for one event, and for a wait when it has nothing to do. A host
/// on top of somebody else's loop that runs instead, as in a program that has one already, calls for the
/// turns.
class Loop {
 public:
  virtual ~Loop() = default;

  /// Seconds of a clock that never goes back and never jumps; it may begin anywhere. The dates of this
  /// interface and the time stamps of events count on it. Asked several times in a turn.
  [[nodiscard]] virtual double now() const = 0;

  /// Tells the library the oldest thing that happened: an event to its window's client, a change to the
  /// settings' handler, the wish of an assistive client to the accessibility tree. One in a call, however
  /// many wait; whoever is told may do anything, and may call this again. False when nothing waited.
  virtual bool dispatchEvent() = 0;

  /// Sleeps until there is something to dispatch, `wake` is called or the date has come; without a date
  /// there is no limit. A date that is past makes it look for events without sleeping. It may return sooner.
  virtual void wait(std::optional<double> until) = 0;

  /// Ends the present wait, or the next one if none is under way. Callable from any thread.
  virtual void wake() = 0;

  /// Who is called for turns while another library's loop runs: when there is something to dispatch, after
  /// `wake`, and when the date of `scheduleTurn` has come. Never called from inside one of the client's own
  /// calls, unless these run such a loop. `client` must outlive the host.
  virtual void setClient(LoopClient* client) = 0;

  /// When the client wants its next turn, in place of what it said before; a past date means as soon as
  /// possible, no date that only events call for one. Said at the end of every turn, also while the library's
  /// own loop runs and makes nothing of it: only when another loop is about to sleep is it worth a timer.
  virtual void scheduleTurn(std::optional<double> date) = 0;
};

}  // namespace bkuk::host
