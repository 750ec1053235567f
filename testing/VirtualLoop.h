#pragma once

#include <atomic>
#include <functional>
#include <optional>

#include "host/Loop.h"
#include "host/support/EventSource.h"

namespace bkuk {

/// The loop of a virtual host: its clock stands still until it is moved on.
class VirtualLoop final : public host::Loop {
 public:
  /// What the library is told of.
  explicit VirtualLoop(host::EventSources sources);

  /// Moves the clock on by `seconds`, 0 or more. Everything that falls due on the way happens in order, each
  /// at its own date. From inside of a turn it moves the clock only.
  void advance(double seconds);
  /// Called by a `wait` that nothing can end.
  void setIdleHandler(std::function<void()> handler) { idleHandler_ = std::move(handler); }

  [[nodiscard]] double now() const override { return now_; }
  bool dispatchEvent() override { return sources_.dispatch(); }
  /// Never sleeps. Returns at once when an event is queued or `wake` was called; otherwise moves the clock
  /// on to the date, or without one calls the idle handler.
  void wait(std::optional<double> until) override;
  void wake() override { isWoken_ = true; }
  void setClient(host::LoopClient* client) override { client_ = client; }
  void scheduleTurn(std::optional<double> date) override { due_ = date; }

 private:
  [[nodiscard]] bool hasWork() const;
  void runTurn();
  void runDueTurns();

  host::EventSources sources_;
  double now_ = 1000;
  std::optional<double> due_;
  std::atomic<bool> isWoken_ = false;
  bool isRunningTurns_ = false;
  host::LoopClient* client_ = nullptr;
  std::function<void()> idleHandler_;
};

}  // namespace bkuk
