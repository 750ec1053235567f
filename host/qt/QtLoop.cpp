#include "host/qt/QtLoop.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <sys/timerfd.h>
#include <unistd.h>
#include <utility>

namespace bkuk::host {

namespace {

const auto wakeType = static_cast<QEvent::Type>(QEvent::registerEventType());

int loopDepth() { return QThread::currentThread()->loopLevel(); }

// Rounded up, so that the date has come when the timer expires. All zero switches the timer off, which
// no date may do.
itimerspec expiry(double date) {
  constexpr double farthest = 1e12;
  const double seconds = std::floor(std::clamp(date, 0.0, farthest));
  const double fraction = std::clamp(date, 0.0, farthest) - seconds;
  itimerspec spec{};
  spec.it_value.tv_sec = static_cast<time_t>(seconds);
  spec.it_value.tv_nsec = std::min(static_cast<long>(fraction * 1e9) + 1, 999'999'999L);
  return spec;
}

}  // namespace

class QtLoop::Driving {
 public:
  Driving(QtLoop& loop, bool pumps)
      : loop_(loop),
        depth_(std::exchange(loop.depth_, loopDepth())),
        wasPumping_(std::exchange(loop.isPumping_, pumps)) {}
  ~Driving() {
    loop_.depth_ = depth_;
    loop_.isPumping_ = wasPumping_;
  }
  Driving(const Driving&) = delete;
  Driving& operator=(const Driving&) = delete;

 private:
  QtLoop& loop_;
  int depth_;
  bool wasPumping_;
};

QtLoop::QtLoop()
    : timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
      notifier_(timer_, QSocketNotifier::Read) {
  connect(&notifier_, &QSocketNotifier::activated, this, [this] { timerExpired(); });
  auto* dispatcher = QAbstractEventDispatcher::instance();
  if (dispatcher) connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &QtLoop::prepareToSleep);
}

QtLoop::~QtLoop() {
  notifier_.setEnabled(false);
  close(timer_);
}

double QtLoop::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool QtLoop::dispatchEvent() {
  if (!sources_.hasEvent()) pump();
  return sources_.dispatch();
}

void QtLoop::scheduleTurn(std::optional<double> date) {
  sources_.turnEnds();
  scheduled_ = date;
}

bool QtLoop::isDriven() const { return loopDepth() > depth_; }

bool QtLoop::isReady(std::optional<double> until) const {
  return isWoken_ || sources_.hasEvent() || (until && *until <= now());
}

void QtLoop::wait(std::optional<double> until) {
  if (!QAbstractEventDispatcher::instance()) return;
  const Driving driving(*this, true);
  until_ = until;
  do {
    process(isReady(until) ? QEventLoop::AllEvents : QEventLoop::WaitForMoreEvents);
  } while (!isReady(until));
  isWoken_ = false;
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtLoop::wake() {
  if (!isWakePosted_.exchange(true)) QCoreApplication::postEvent(this, new QEvent(wakeType));
}

void QtLoop::pump() {
  if (loopDepth() > 0) return;
  const Driving driving(*this, true);
  process(QEventLoop::AllEvents);
}

void QtLoop::noteQueued() {
  if (!isPumping_ || isDriven()) wake();
}

bool QtLoop::event(QEvent* event) {
  if (event->type() != wakeType) return QObject::event(event);
  isWakePosted_ = false;
  isWoken_ = true;
  // Through the timer rather than at once, so that a client that always has more to do cannot keep the
  // other loop from its own events.
  if (isDriven()) scheduled_ = now();
  return true;
}

void QtLoop::process(QEventLoop::ProcessEventsFlags flags) {
  if (auto* dispatcher = QAbstractEventDispatcher::instance()) dispatcher->processEvents(flags);
}

// Another loop may have started inside of one of our turns, and waits for the client's next one.
void QtLoop::prepareToSleep() { arm(isDriven() ? scheduled_ : until_); }

void QtLoop::arm(std::optional<double> date) {
  if (date && std::isnan(*date)) date.reset();
  if (date == armed_) return;
  armed_ = date;
  const auto spec = date ? expiry(*date) : itimerspec{};
  timerfd_settime(timer_, TFD_TIMER_ABSTIME, &spec, nullptr);
}

void QtLoop::timerExpired() {
  std::uint64_t expirations = 0;
  if (read(timer_, &expirations, sizeof expirations) <= 0) return;
  armed_.reset();
  if (isDriven()) runTurn();
}

void QtLoop::runTurn() {
  isWoken_ = false;
  scheduled_.reset();
  if (!client_) return;
  {
    const Driving driving(*this, false);
    client_->turn();
  }
  if (isWoken_ || sources_.hasEvent()) scheduled_ = now();
}

}  // namespace bkuk::host
