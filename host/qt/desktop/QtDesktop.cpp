#include "host/qt/desktop/QtDesktop.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <utility>

#include "host/qt/QtLoop.h"
#include "host/qt/desktop/QtApplication.h"
#include "host/qt/desktop/QtBell.h"
#include "host/qt/desktop/QtWindow.h"
#include "host/qt/drawing/QtConversions.h"

namespace bkuk::host {

namespace {

// Where there is no screen, as on a compositor whose outputs are all off.
const Screen fallbackScreen{{0, 0, 1280, 800}, {0, 0, 1280, 800}, 1};

Point pointerOnScreen() {
  const QPoint position = QCursor::pos();
  return {double(position.x()), double(position.y())};
}

// Whether the event tells of a pointer over one of our windows.
bool tellsPointer(const WindowEvent& event) {
  const auto* pointer = std::get_if<PointerEvent>(&event);
  if (!pointer) return std::holds_alternative<WheelEvent>(event);
  return pointer->kind != PointerEvent::Kind::leave && pointer->kind != PointerEvent::Kind::cancel;
}

}  // namespace

QtDesktop::QtDesktop(QtApplication& application, QtLoop& loop, QtAccessibility& accessibility)
    : application_(application), loop_(loop), accessibility_(accessibility), pointer_(pointerOnScreen) {}

std::unique_ptr<Window> QtDesktop::makeWindow(const WindowOptions& options, WindowClient& client) {
  return std::make_unique<QtWindow>(*this, options, client);
}

std::vector<Screen> QtDesktop::screens() const {
  std::vector<Screen> result;
  for (const auto* screen : QGuiApplication::screens()) {
    result.push_back(
        {fromQt(screen->geometry()), fromQt(screen->availableGeometry()), screen->devicePixelRatio()});
  }
  if (result.empty()) result.push_back(fallbackScreen);
  return result;
}

bool QtDesktop::canPlaceWindows() const { return application_.canPlaceWindows(); }

bool QtDesktop::hasDisplay() const { return application_.hasDisplay(); }

void QtDesktop::beep() { ringBell(); }

void QtDesktop::setIdentity(const ApplicationIdentity& identity) { application_.identify(identity); }

void QtDesktop::dispatchBegins() {
  const auto* next = queue_.next();
  if (next && tellsPointer(*next)) pointer_.recall();
}

double QtDesktop::now() const { return loop_.now(); }

void QtDesktop::push(Window& window, WindowClient& client, WindowEvent event) {
  queue_.push(window, client, std::move(event));
  loop_.noteQueued();
}

}  // namespace bkuk::host
