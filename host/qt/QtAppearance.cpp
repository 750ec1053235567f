#include "host/qt/QtAppearance.h"

#include <QtCore/QFileInfo>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>
#include <algorithm>

namespace bkuk::host {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");

// Asking for the session bus where there is none would start one.
bool hasSessionBus() {
  if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
  const auto runtimeDirectory = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !runtimeDirectory.isEmpty() && QFileInfo::exists(runtimeDirectory + "/bus");
}

// Portals wrap a value in one variant or, for historical reasons, in two.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

ColorScheme schemeFrom(const QVariant& value) {
  switch (value.toUInt()) {
    case 1:
      return ColorScheme::dark;
    case 2:
      return ColorScheme::light;
    default:
      return ColorScheme::unknown;
  }
}

// Three doubles; a component outside 0 to 1 says that the user has chosen none.
std::optional<Rgba> accentFrom(const QVariant& value) {
  if (!value.canConvert<QDBusArgument>()) return std::nullopt;
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != QLatin1String("(ddd)")) return std::nullopt;
  Rgba color;
  argument.beginStructure();
  argument >> color.red >> color.green >> color.blue;
  argument.endStructure();
  const bool isChosen = std::ranges::all_of(std::initializer_list<double>{color.red, color.green, color.blue},
                                            [](double x) { return x >= 0 && x <= 1; });
  return isChosen ? std::optional(color) : std::nullopt;
}

}  // namespace

QtAppearance::QtAppearance(std::function<void(const Appearance&)> announce) : announce_(std::move(announce)) {
  if (!hasSessionBus()) return;
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QDBusMessage)));
  for (const char* key : {"color-scheme", "contrast", "reduced-motion", "accent-color"}) {
    ask(bus, QLatin1String(key));
  }
}

void QtAppearance::ask(QDBusConnection& bus, const QString& key) {
  auto message =
      QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
  message << appearanceNamespace << key;
  unanswered_.insert(key);
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, key](QDBusPendingCallWatcher* done) {
    const QDBusPendingReply<QDBusVariant> reply = *done;
    // A change announced in the meantime is fresher than the answer.
    if (reply.isValid() && unanswered_.contains(key)) apply(key, unwrapped(reply.value().variant()));
    answered(key);
    done->deleteLater();
  });
}

void QtAppearance::settingChanged(const QDBusMessage& message) {
  const auto arguments = message.arguments();
  if (arguments.size() != 3 || arguments[0].toString() != appearanceNamespace) return;
  const auto key = arguments[1].toString();
  apply(key, unwrapped(arguments[2]));
  answered(key);
}

void QtAppearance::apply(const QString& key, const QVariant& value) {
  if (key == QLatin1String("color-scheme")) {
    appearance_.scheme = schemeFrom(value);
  } else if (key == QLatin1String("contrast")) {
    appearance_.highContrast = value.toUInt() == 1;
  } else if (key == QLatin1String("reduced-motion")) {
    appearance_.reducedMotion = value.toUInt() == 1;
  } else if (key == QLatin1String("accent-color")) {
    appearance_.accent = accentFrom(value);
  }
}

// One announcement for all that was asked at the start, so that nobody repaints four times.
void QtAppearance::answered(const QString& key) {
  unanswered_.erase(key);
  if (unanswered_.empty()) announce_(appearance_);
}

}  // namespace bkuk::host
