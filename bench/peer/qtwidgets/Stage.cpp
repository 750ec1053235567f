#include "bench/peer/qtwidgets/Stage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include "bench/peer/qt/Display.h"

namespace peer {

Stage::Stage(QSize size) {
  setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  resize(size);
}

void Stage::showFirstFrame() {
  show();
  turnUntil([this] { return paintCount_ > 0; });
  waitForDisplay();
}

void Stage::settle() {
  const QDeadlineTimer end(150);
  while (!end.hasExpired()) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  waitForDisplay();
}

void Stage::turnUntil(const std::function<bool()>& condition) {
  do QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  while (!condition());
  // What was asked to be painted waits among them.
  QCoreApplication::sendPostedEvents();
}

void Stage::paintAgain() {
  repaint();
  waitForDisplay();
}

void Stage::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  ++paintCount_;
}

}  // namespace peer
