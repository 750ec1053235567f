#include "testing/VirtualLoop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace bkuk {

namespace {

// Work that begets work at the same date for longer than this never ends.
constexpr int maximumTurnsPerDate = 100'000;

// Back to false also when a test's handler of fatal stops throws through a turn.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flag() { flag_ = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
};

[[noreturn]] void stopEndlessTurns() {
  std::fputs("VirtualHost: the run loop has work again after every turn, without time passing\n", stderr);
  std::abort();
}

}  // namespace

VirtualLoop::VirtualLoop(host::EventSources sources) : sources_(std::move(sources)) {}

void VirtualLoop::advance(double seconds) {
  const double target = now_ + std::max(seconds, 0.0);
  if (isRunningTurns_) {
    now_ = target;
    return;
  }
  const Flag running(isRunningTurns_);
  runDueTurns();
  while (due_ && *due_ <= target) {
    now_ = std::max(now_, *due_);
    runDueTurns();
  }
  if (now_ < target) {
    now_ = target;
    runDueTurns();
  }
}

bool VirtualLoop::hasWork() const { return isWoken_ || sources_.hasEvent() || (due_ && *due_ <= now_); }

// The first turn is for free: what the library changed between two calls is committed by it.
void VirtualLoop::runDueTurns() {
  int turns = 0;
  do {
    runTurn();
    if (++turns > maximumTurnsPerDate) stopEndlessTurns();
  } while (hasWork());
}

void VirtualLoop::runTurn() {
  isWoken_ = false;
  due_.reset();
  if (client_) {
    client_->turn();
  } else {
    dispatchEvent();
  }
}

void VirtualLoop::wait(std::optional<double> until) {
  if (isWoken_.exchange(false) || sources_.hasEvent()) return;
  if (until) {
    now_ = std::max(now_, *until);
  } else if (const auto handler = idleHandler_) {
    handler();
  }
}

}  // namespace bkuk
