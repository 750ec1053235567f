#include "bench/peer/qt/Display.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>
#include <QtGui/qguiapplication_platform.h>
#include <cstdlib>
#include <utility>
#include <xcb/xcb.h>

namespace peer {

namespace {

QWindow& window() { return *QGuiApplication::topLevelWindows().first(); }

}  // namespace

void waitForDisplay() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11 || !x11->connection()) return;
  const auto request = xcb_get_input_focus(x11->connection());
  std::free(xcb_get_input_focus_reply(x11->connection(), request, nullptr));
}

bool isWindowExposed() { return window().isExposed(); }

/// Counts the motions that reach the window.
class Pointer::Motions : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) ++count;
    return false;
  }
  int count = 0;
};

Pointer::Pointer(std::function<void(const Condition&)> turnUntil)
    : turnUntil_(std::move(turnUntil)), motions_(std::make_unique<Motions>()) {
  window().installEventFilter(motions_.get());
}

Pointer::~Pointer() = default;

void Pointer::move(int x, int y) {
  const int seen = motions_->count;
  QCursor::setPos(window().mapToGlobal(QPoint(x, y)));
  waitForDisplay();
  turnUntil_([&] { return motions_->count != seen; });
  waitForDisplay();
}

}  // namespace peer
