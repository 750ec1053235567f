#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <functional>
#include <map>

#include "host/Appearance.h"

namespace bkuk::host {

/// Listens to the settings of the desktop portal. Answers come in with the other events, and count one by
/// one; without a bus or a portal none ever does. Nothing here waits for another process but
/// `awaitFirstAnswers`.
class QtAppearance : public QObject {
  Q_OBJECT

 public:
  /// `announce` hears the whole appearance, with each answer and with each setting that the desktop changes.
  explicit QtAppearance(std::function<void(const Appearance&)> announce);

  /// Waits until every question of the start is answered, and no longer than 50 ms from the asking, then
  /// announces what there is.
  void awaitFirstAnswers();

 private slots:
  void settingChanged(const QDBusMessage& message);

 private:
  enum class Key { colorScheme, contrast, reducedMotion, accentColor };
  struct NamedKey;
  static const NamedKey keys[];

  void ask(QDBusConnection& bus, const NamedKey& key);
  void apply(Key key, const QVariant& value);
  void takeAnswer(Key key, const QDBusPendingCall& call);

  std::function<void(const Appearance&)> announce_;
  Appearance appearance_;
  std::map<Key, QDBusPendingCall> unanswered_;
  QDeadlineTimer patience_;
};

}  // namespace bkuk::host
