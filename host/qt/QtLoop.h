#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <atomic>
#include <optional>
#include <utility>

#include "host/Loop.h"
#include "host/support/EventSource.h"

namespace bkuk::host {

/// Waiting, on Qt's event dispatcher. One timer descriptor of the kernel stands for the next date, and
/// nothing else ever wakes the process. It is set when the dispatcher is about to sleep, if it is not set to
/// that date already: turns that follow one another cost no timer.
///
/// The library's loop usually drives: it calls `wait`, and Qt's events come in during that. When another
/// loop drives, because the application runs `QGuiApplication::exec` or a dialogue of its own inside one
/// of our turns, the descriptor and posted events make this object call the client's turns instead.
class QtLoop final : public QObject, public Loop {
 public:
  QtLoop();
  ~QtLoop() override;

  /// What the library is told of.
  void setSources(EventSources sources) { sources_ = std::move(sources); }

  [[nodiscard]] double now() const override;
  bool dispatchEvent() override;
  void wait(std::optional<double> until) override;
  void wake() override;
  void setClient(LoopClient* client) override { client_ = client; }
  void scheduleTurn(std::optional<double> date) override;

  /// To be called after something was queued for the library.
  void noteQueued();

 protected:
  bool event(QEvent* event) override;

 private:
  // For the length of a pump or turn of ours: Qt loops of the present depth are not "another loop".
  class Driving;

  [[nodiscard]] bool isDriven() const;
  [[nodiscard]] bool isReady(std::optional<double> until) const;
  // Takes in what the desktop has sent, without waiting; does nothing while another loop drives.
  void pump();
  void process(QEventLoop::ProcessEventsFlags flags);
  void prepareToSleep();
  void arm(std::optional<double> date);
  void timerExpired();
  void runTurn();

  EventSources sources_;
  LoopClient* client_ = nullptr;
  int timer_;
  QSocketNotifier notifier_;
  std::optional<double> scheduled_;  // the client's next turn, for another loop
  std::optional<double> until_;      // the date that ends the present wait
  std::optional<double> armed_;
  bool isWoken_ = false;
  bool isPumping_ = false;
  std::atomic<bool> isWakePosted_ = false;
  int depth_ = 0;
};

}  // namespace bkuk::host
