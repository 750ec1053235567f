#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSRunLoopMode.h"
#include "platform/foundation/NSRunLoopObserver.h"

namespace bkuk {

namespace host {
class Host;
}

class NSTimer;

/// The main thread's loop. Each turn runs the blocks that waited on the main queue when it began, then the
/// due timers of the current mode, then one event of the host, then the turn-end observers.
///
/// Dates are seconds on the host's clock. When another library's loop runs, the host calls for the turns;
/// the loop tells it at the end of each turn, and whenever that changes, when the next one is due.
class NSRunLoop final : public NSObject {
 public:
  [[nodiscard]] static NSRunLoop& main();
  /// The loop of the calling thread, which must be the main thread.
  [[nodiscard]] static NSRunLoop& current();

  /// The mode of the innermost run, the default mode while none is running.
  [[nodiscard]] NSRunLoopMode currentMode() const;

  /// The loop holds the timer until it is invalid. An invalid timer is ignored; adding twice to a mode is the
  /// same as once.
  void add(const Ref<NSTimer>& timer, NSRunLoopMode mode);

  /// Runs one turn in the current mode without waiting.
  void step();

  /// Runs turns in the current mode until `stop()`, asleep while there is nothing to do.
  void run();
  /// Runs turns in `mode`, at least one, until the date has come or `stop()`. May be called inside a turn.
  void run(NSRunLoopMode mode, double untilDate);
  /// Runs turns in `mode`, at least one, for as long as `condition` holds after a turn, or until `stop()`.
  void run(NSRunLoopMode mode, const std::function<bool()>& condition);
  /// Ends the innermost run after the present turn.
  void stop();

  /// The earliest fire date among the timers of the current mode.
  [[nodiscard]] std::optional<double> nextFireDate() const;

  /// Adds work for the end of every turn, in rising order, equal orders in order of addition. Used by the
  /// commit of layers and windows. `hasWorkLeft` is asked when a turn was asked for while the handler ran:
  /// only if it answers yes there will be one. Without it there always is.
  Ref<NSRunLoopObserver> addTurnEndObserver(int order, std::function<void()> handler,
                                            std::function<bool()> hasWorkLeft = {});

  /// Asks for a turn even though no block, timer or event calls for one: called by whoever leaves work to a
  /// turn-end observer. Cheap to call often.
  void setNeedsTurn();

 private:
  friend class NSTimer;
  friend class NSRunLoopObserver;
  friend class DispatchQueue;

  struct FiresEarlier {
    bool operator()(const Ref<NSTimer>& a, const Ref<NSTimer>& b) const;
  };
  enum class State { idle, inTurn, waiting };
  struct Run;
  template <typename T>
  class Setting;
  using Timers = std::set<Ref<NSTimer>, FiresEarlier>;
  using Observers = std::vector<Ref<NSRunLoopObserver>>;

  NSRunLoop();
  static void attach(host::Host& host);
  static const bool isAttached;
  /// Called by the main queue, on any thread.
  static void mainQueueGrew();

  void runTurns(const Run& run, std::optional<double> until, const std::function<bool()>& goesOn);
  void waitForWork(std::optional<double> until);
  [[nodiscard]] bool hasWaitingWork() const;

  [[nodiscard]] static bool firesIn(const NSTimer& timer, NSRunLoopMode mode);
  void fireDueTimers();
  void fire(const Ref<NSTimer>& timer);
  void enqueue(const Ref<NSTimer>& timer);
  void dequeue(const Ref<NSTimer>& timer);
  void move(const Ref<NSTimer>& timer, double fireDate);

  void remove(NSRunLoopObserver& observer);
  void runTurnEndObservers();
  void runTurnEnd(NSRunLoopObserver& observer);
  void scheduleHost() const;
  void scheduleHostOutsideTurn() const;

  Timers timers_;
  std::vector<Ref<NSTimer>> dueTimers_;  // spare storage between turns
  std::uint64_t lastOrder_ = 0;
  std::shared_ptr<const Observers> observers_;  // replaced, never changed: a turn walks the one it found
  Run* innermostRun_ = nullptr;
  State state_ = State::idle;
  bool needsTurn_ = false;
};

}  // namespace bkuk
