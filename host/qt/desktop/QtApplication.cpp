#include "host/qt/desktop/QtApplication.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtGui/QWindow>
#include <array>
#include <errno.h>
#include <utility>

#include "host/qt/desktop/QtWindow.h"
#include "host/qt/drawing/QtConversions.h"
#include "host/qt/settings/SessionBus.h"

namespace bkuk::host {

namespace {

// The platforms to try in turn. The offscreen one always answers, so making the application object cannot
// fail, and cannot stop the process as it otherwise does.
std::string platformsToTry(QtApplication::Purpose purpose) {
  if (purpose == QtApplication::Purpose::drawing) return "offscreen";
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    return qgetenv("QT_QPA_PLATFORM").toStdString() + ";offscreen";
  }
  std::string platforms;
  if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) platforms += "wayland;";
  if (!qEnvironmentVariableIsEmpty("DISPLAY")) platforms += "xcb;";
  return platforms + "offscreen";
}

// What a program's main function would pass on; the application object keeps referring to it.
struct Arguments {
  explicit Arguments(std::string platforms) : platforms_(std::move(platforms)) {}

  std::string name_ = program_invocation_name;
  std::string option_ = "-platform";
  std::string platforms_;
  std::array<char*, 4> values{name_.data(), option_.data(), platforms_.data(), nullptr};
  int count = 3;
};

}  // namespace

QtApplication& QtApplication::shared(Purpose purpose) {
  static auto& application = *new QtApplication(purpose);
  return application;
}

QtApplication::QtApplication(Purpose purpose) : isAdopted_(QCoreApplication::instance() != nullptr) {
  if (!isAdopted_) make(purpose);
  platform_ = presentPlatform();
  qAddPostRoutine(closeWindows);
}

void QtApplication::make(Purpose purpose) {
  // Qt's own parts join the bus while the object is made, and would wait there for ever.
  if (purpose == Purpose::windows) static_cast<void>(hasSessionBus());
  // Without this an assistive program that starts after us would never find us.
  if (!qEnvironmentVariableIsSet("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")) {
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
  }
  static auto& arguments = *new Arguments(platformsToTry(purpose));
  static const auto& application = *new QGuiApplication(arguments.count, arguments.values.data());
  static_cast<void>(application);
  QGuiApplication::setQuitOnLastWindowClosed(false);
}

QtApplication::Platform QtApplication::presentPlatform() {
  const QString name = QGuiApplication::platformName();
  if (name == QLatin1String("xcb")) return Platform::x11;
  if (name.startsWith(QLatin1String("wayland"))) return Platform::wayland;
  const bool isShown = name != QLatin1String("offscreen") && name != QLatin1String("minimal");
  return isShown ? Platform::other : Platform::none;
}

void QtApplication::identify(const ApplicationIdentity& identity) {
  desktopId_ = identity.desktopId;
  if (!identity.name.empty()) QCoreApplication::setApplicationName(QString::fromStdString(identity.name));
  if (!desktopId_.empty()) QGuiApplication::setDesktopFileName(QString::fromStdString(desktopId_));
  if (identity.icon) {
    QGuiApplication::setWindowIcon(QIcon(QPixmap::fromImage(sharedImage(*identity.icon).copy())));
  }
}

// The class of all windows is that which the application's name gives to the first.
void QtApplication::nameClass(QWindow& window) {
  const auto id = QString::fromStdString(std::exchange(desktopId_, {}));
  if (id.isEmpty() || !isX11()) return;
  const QString name = QCoreApplication::applicationName();
  QCoreApplication::setApplicationName(id);
  window.create();
  QCoreApplication::setApplicationName(name);
}

bool QtApplication::hasDisplay() const { return platform_ != Platform::none; }

bool QtApplication::canPlaceWindows() const { return platform_ != Platform::wayland; }

bool QtApplication::isX11() const { return platform_ == Platform::x11; }

void QtApplication::closeWindows() {
  for (auto* window : shared(Purpose::windows).windows_) window->closeNative();
}

}  // namespace bkuk::host
