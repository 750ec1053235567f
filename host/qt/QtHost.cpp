#include "host/qt/QtHost.h"

#include <QtCore/QLocale>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include "host/qt/QtApplication.h"
#include "host/qt/QtBell.h"
#include "host/qt/QtCanvas.h"
#include "host/qt/QtConversions.h"
#include "host/qt/QtDrawing.h"
#include "host/qt/QtWindow.h"

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

QtHost::QtHost()
    : application_(QtApplication::shared(QtApplication::Purpose::windows)),
      pointer_(pointerOnScreen),
      loop_([this] { return hasEvent(); }),
      accessibility_([this] { loop_.noteQueued(); }),
      portal_([this](const Appearance& appearance) {
        appearance_.announce(appearance);
        if (appearance_.hasChange()) loop_.noteQueued();
      }) {
  // Before there is a window, so that none is shown in another look first.
  portal_.awaitFirstAnswers();
  appearance_.deliver();
}

QtHost::~QtHost() = default;

// The appearance goes first: an announcement that waits makes the frames before it stale.
bool QtHost::dispatchEvent() {
  if (!hasEvent()) loop_.pump();
  accessibility_.eventBegins();
  const auto* next = queue_.next();
  if (next && tellsPointer(*next)) pointer_.recall();
  return appearance_.deliver() || accessibility_.deliver() || queue_.dispatch();
}

void QtHost::scheduleTurn(std::optional<double> date) {
  pointer_.turnEnds();
  loop_.schedule(date);
}

bool QtHost::hasEvent() const {
  return !queue_.isEmpty() || appearance_.hasChange() || accessibility_.hasRequest();
}

std::unique_ptr<Window> QtHost::makeWindow(const WindowOptions& options, WindowClient& client) {
  return std::make_unique<QtWindow>(*this, options, client);
}

void QtHost::push(Window& window, WindowClient& client, WindowEvent event) {
  queue_.push(window, client, std::move(event));
  loop_.noteQueued();
}

std::vector<Screen> QtHost::screens() const {
  std::vector<Screen> result;
  for (const auto* screen : QGuiApplication::screens()) {
    result.push_back(
        {fromQt(screen->geometry()), fromQt(screen->availableGeometry()), screen->devicePixelRatio()});
  }
  if (result.empty()) result.push_back(fallbackScreen);
  return result;
}

bool QtHost::canPlaceWindows() const { return application_.canPlaceWindows(); }

bool QtHost::hasDisplay() const { return application_.hasDisplay(); }

void QtHost::beep() { ringBell(); }

void QtHost::setIdentity(const ApplicationIdentity& identity) { application_.identify(identity); }

std::unique_ptr<Canvas> QtHost::makeCanvas(Bitmap& bitmap) { return std::make_unique<QtCanvas>(bitmap); }

DecodedImage QtHost::decodeImage(std::span<const std::byte> file) const { return decodeImageFile(file); }

void QtHost::setAppearanceHandler(std::function<void()> changed) {
  appearance_.setHandler(std::move(changed));
}

std::vector<std::string> QtHost::languages() const {
  std::vector<std::string> result;
  for (const auto& language : QLocale::system().uiLanguages()) {
    // The locale of programs without one speaks American English.
    result.push_back(language == QLatin1String("C") ? "en-US" : language.toStdString());
  }
  return result;
}

// An application of Qt's decides for itself, by its translations; otherwise the user's language does.
TextDirection QtHost::layoutDirection() const {
  const auto direction =
      application_.isAdopted() ? QGuiApplication::layoutDirection() : QLocale::system().textDirection();
  return direction == Qt::RightToLeft ? TextDirection::rightToLeft : TextDirection::leftToRight;
}

std::unique_ptr<Host> makeDesktopHost() { return std::make_unique<QtHost>(); }

}  // namespace bkuk::host
