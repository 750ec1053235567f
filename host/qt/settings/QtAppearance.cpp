#include "host/qt/settings/QtAppearance.h"

#include <QtCore/QThread>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>
#include <algorithm>
#include <iterator>

#include "host/qt/settings/SessionBus.h"

namespace bkuk::host {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");

constexpr int patience = 50;  // milliseconds
constexpr int pause = 1;      // between two looks for answers, milliseconds

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

// As the portal calls them.
struct QtAppearance::NamedKey {
  Key key;
  QLatin1String name;
};

const QtAppearance::NamedKey QtAppearance::keys[] = {
    {Key::colorScheme, QLatin1String("color-scheme")},
    {Key::contrast, QLatin1String("contrast")},
    {Key::reducedMotion, QLatin1String("reduced-motion")},
    {Key::accentColor, QLatin1String("accent-color")},
};

QtAppearance::QtAppearance(std::function<void(const Appearance&)> announce)
    : announce_(std::move(announce)), patience_(patience) {
  if (!hasSessionBus()) return;
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QDBusMessage)));
  for (const auto& key : keys) ask(bus, key);
}

void QtAppearance::ask(QDBusConnection& bus, const NamedKey& key) {
  auto message =
      QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
  message << appearanceNamespace << QString(key.name);
  const auto call = bus.asyncCall(message);
  unanswered_.insert_or_assign(key.key, call);
  auto* watcher = new QDBusPendingCallWatcher(call, this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this, key = key.key](QDBusPendingCallWatcher* done) {
            takeAnswer(key, *done);
            done->deleteLater();
          });
}

// A change announced in the meantime is fresher than the answer.
void QtAppearance::takeAnswer(Key key, const QDBusPendingCall& call) {
  if (unanswered_.erase(key) == 0) return;
  const QDBusPendingReply<QDBusVariant> reply = call;
  if (!reply.isValid()) return;
  apply(key, unwrapped(reply.value().variant()));
  announce_(appearance_);
}

// The replies come in on the bus's own thread. The loop must not run meanwhile: events of the application
// would be delivered inside of whatever asked for the host.
void QtAppearance::awaitFirstAnswers() {
  const auto isAnswered = [](const auto& question) { return question.second.isFinished(); };
  while (!std::ranges::all_of(unanswered_, isAnswered) && !patience_.hasExpired()) QThread::msleep(pause);
  const auto questions = unanswered_;
  for (const auto& [key, call] : questions) {
    if (call.isFinished()) takeAnswer(key, call);
  }
}

void QtAppearance::settingChanged(const QDBusMessage& message) {
  const auto arguments = message.arguments();
  if (arguments.size() != 3 || arguments[0].toString() != appearanceNamespace) return;
  const auto* known = std::ranges::find(keys, arguments[1].toString(), &NamedKey::name);
  if (known == std::end(keys)) return;
  unanswered_.erase(known->key);
  apply(known->key, unwrapped(arguments[2]));
  announce_(appearance_);
}

void QtAppearance::apply(Key key, const QVariant& value) {
  switch (key) {
    case Key::colorScheme:
      appearance_.scheme = schemeFrom(value);
      break;
    case Key::contrast:
      appearance_.highContrast = value.toUInt() == 1;
      break;
    case Key::reducedMotion:
      appearance_.reducedMotion = value.toUInt() == 1;
      break;
    case Key::accentColor:
      appearance_.accent = accentFrom(value);
      break;
  }
}

}  // namespace bkuk::host
