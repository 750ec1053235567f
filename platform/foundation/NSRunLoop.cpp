#include "platform/foundation/NSRunLoop.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "host/Host.h"
#include "host/Loop.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSThread.h"
#include "platform/foundation/NSTimer.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/foundation/NSRunLoop";

class MainLoopClient final : public host::LoopClient {
 public:
  void turn() override { NSRunLoop::main().step(); }
};

std::optional<double> earlier(std::optional<double> a, std::optional<double> b) {
  if (!a || !b) return a ? a : b;
  return std::min(*a, *b);
}

}  // namespace

/// A run that is under way, linked to the one around it.
struct NSRunLoop::Run {
  Run(NSRunLoop& runLoop, NSRunLoopMode runMode) : loop(runLoop), mode(runMode), outer(loop.innermostRun_) {
    if (mode == NSRunLoopMode::common) fatal("A run loop cannot run in the common modes", unit);
    loop.innermostRun_ = this;
  }
  ~Run() { loop.innermostRun_ = outer; }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  NSRunLoop& loop;
  NSRunLoopMode mode;
  Run* outer;
  bool isStopped = false;
};

/// Puts a member at another value for the length of a block.
template <typename T>
class NSRunLoop::Setting {
 public:
  Setting(T& member, T value) : member_(member), before_(std::exchange(member, value)) {}
  ~Setting() { member_ = before_; }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  T& member_;
  T before_;
};

bool NSRunLoop::FiresEarlier::operator()(const Ref<NSTimer>& a, const Ref<NSTimer>& b) const {
  return std::tie(a->fireDate_, a->order_) < std::tie(b->fireDate_, b->order_);
}

NSRunLoop::NSRunLoop() : observers_(std::make_shared<const Observers>()) {}

NSRunLoop& NSRunLoop::main() {
  static const auto& loop = permanent([] { return Ref<NSRunLoop>::adopt(new NSRunLoop); });
  return *loop;
}

NSRunLoop& NSRunLoop::current() {
  if (!NSThread::isMainThread()) fatal("Run loops belong to the main thread", unit);
  return main();
}

NSRunLoopMode NSRunLoop::currentMode() const {
  return innermostRun_ ? innermostRun_->mode : NSRunLoopMode::default_;
}

void NSRunLoop::attach(host::Host& host) {
  static auto& client = *new MainLoopClient;
  host.loop().setClient(&client);
  main().scheduleHost();
}

[[maybe_unused]] const bool NSRunLoop::isAttached = (host::addInstallObserver(&NSRunLoop::attach), true);

void NSRunLoop::mainQueueGrew() {
  // Inside a turn its end looks at the queue. What a turn is doing is only known on its own thread.
  if (NSThread::isMainThread() && main().state_ == State::inTurn) return;
  host::wake();
}

void NSRunLoop::add(const Ref<NSTimer>& timer, NSRunLoopMode mode) {
  if (!timer->isValid()) return;
  timer->modes_ |= static_cast<unsigned>(mode);
  if (!std::exchange(timer->isAdded_, true)) {
    timer->order_ = ++lastOrder_;
    enqueue(timer);
  }
  scheduleHostOutsideTurn();
}

void NSRunLoop::step() {
  const Setting<State> state(state_, State::inTurn);
  DispatchQueue::main().runWaitingBlocks();
  fireDueTimers();
  host::current().loop().dispatchEvent();
  needsTurn_ = false;
  runTurnEndObservers();
  scheduleHost();
}

void NSRunLoop::run() {
  Run run(*this, currentMode());
  runTurns(run, {}, [] { return true; });
}

void NSRunLoop::run(NSRunLoopMode mode, double untilDate) {
  Run run(*this, mode);
  runTurns(run, untilDate, [untilDate] { return host::current().loop().now() < untilDate; });
}

void NSRunLoop::run(NSRunLoopMode mode, const std::function<bool()>& condition) {
  required(condition, "NSRunLoop: no condition; give run one, or a date");
  Run run(*this, mode);
  runTurns(run, {}, condition);
}

void NSRunLoop::runTurns(const Run& run, std::optional<double> until, const std::function<bool()>& goesOn) {
  step();
  while (!run.isStopped && goesOn()) {
    waitForWork(until);
    step();
  }
}

void NSRunLoop::stop() {
  if (innermostRun_) innermostRun_->isStopped = true;
}

void NSRunLoop::waitForWork(std::optional<double> until) {
  if (hasWaitingWork()) return;
  const Setting<State> state(state_, State::waiting);
  host::current().loop().wait(earlier(nextFireDate(), until));
}

bool NSRunLoop::hasWaitingWork() const { return needsTurn_ || DispatchQueue::main().hasWaitingBlocks(); }

bool NSRunLoop::firesIn(const NSTimer& timer, NSRunLoopMode mode) {
  return (timer.modes_ & static_cast<unsigned>(mode)) != 0;
}

std::optional<double> NSRunLoop::nextFireDate() const {
  const auto mode = currentMode();
  const auto found = std::ranges::find_if(timers_, [&](const auto& timer) { return firesIn(*timer, mode); });
  if (found == timers_.end() || std::isinf((*found)->fireDate_)) return {};
  return (*found)->fireDate_;
}

void NSRunLoop::fireDueTimers() {
  const auto mode = currentMode();
  const double now = host::current().loop().now();
  auto due = std::exchange(dueTimers_, {});
  for (const auto& timer : timers_) {
    if (timer->fireDate_ > now) break;
    if (firesIn(*timer, mode)) due.push_back(timer);
  }
  // A callback may have invalidated, moved or, in a nested run, fired those that come after it.
  for (const auto& timer : due) {
    if (timer->isQueued_ && timer->fireDate_ <= now) fire(timer);
  }
  due.clear();
  dueTimers_ = std::move(due);
}

void NSRunLoop::fire(const Ref<NSTimer>& timer) {
  auto node = timers_.extract(timer);
  timer->isQueued_ = false;
  timer->fireDateWasSet_ = false;
  if (timer->isValid()) timer->fire();
  if (!timer->isValid()) return timer->invalidate();
  if (!timer->fireDateWasSet_) timer->advanceFireDate(host::current().loop().now());
  timer->isQueued_ = true;
  timers_.insert(std::move(node));
}

void NSRunLoop::enqueue(const Ref<NSTimer>& timer) {
  timer->isQueued_ = true;
  timers_.insert(timer);
}

void NSRunLoop::dequeue(const Ref<NSTimer>& timer) {
  if (!std::exchange(timer->isQueued_, false)) return;
  timers_.erase(timer);
}

void NSRunLoop::move(const Ref<NSTimer>& timer, double fireDate) {
  const bool wasQueued = timer->isQueued_;
  dequeue(timer);
  timer->fireDate_ = fireDate;
  timer->order_ = ++lastOrder_;
  if (!wasQueued) return;
  enqueue(timer);
  scheduleHostOutsideTurn();
}

Ref<NSRunLoopObserver> NSRunLoop::addTurnEndObserver(int order, std::function<void()> handler,
                                                     std::function<bool()> hasWorkLeft) {
  required(handler, "NSRunLoop: no handler; give addTurnEndObserver one");
  auto observer = make<NSRunLoopObserver>(order, std::move(handler), std::move(hasWorkLeft));
  auto observers = std::make_shared<Observers>(*observers_);
  const auto place = std::ranges::upper_bound(*observers, order, {}, &NSRunLoopObserver::order_);
  observers->insert(place, observer);
  observers_ = std::move(observers);
  return observer;
}

void NSRunLoop::remove(NSRunLoopObserver& observer) {
  auto observers = std::make_shared<Observers>(*observers_);
  std::erase(*observers, Ref(&observer));
  observers_ = std::move(observers);
}

void NSRunLoop::runTurnEndObservers() {
  const auto snapshot = observers_;
  for (const auto& observer : *snapshot) {
    if (observer->isValid_) runTurnEnd(*observer);
  }
}

// A commit asks for turns by what it does, such as a layer that is displayed, and serves them in the same go.
void NSRunLoop::runTurnEnd(NSRunLoopObserver& observer) {
  const bool neededTurn = needsTurn_;
  observer.handler_();
  if (!neededTurn && needsTurn_ && observer.hasWorkLeft_) needsTurn_ = observer.hasWorkLeft_();
}

void NSRunLoop::setNeedsTurn() {
  if (std::exchange(needsTurn_, true)) return;
  scheduleHostOutsideTurn();
}

void NSRunLoop::scheduleHost() const {
  auto& loop = host::current().loop();
  loop.scheduleTurn(hasWaitingWork() ? loop.now() : nextFireDate());
}

void NSRunLoop::scheduleHostOutsideTurn() const {
  if (state_ == State::idle) scheduleHost();
  if (state_ == State::waiting) host::current().loop().wake();
}

}  // namespace bkuk
