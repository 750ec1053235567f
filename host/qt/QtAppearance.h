#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <functional>
#include <set>

#include "host/Appearance.h"

namespace bkuk::host {

/// Listens to the settings of the desktop portal. Nothing here waits for another process: the answers
/// come in with the other events, and without a bus or a portal none ever does.
class QtAppearance : public QObject {
  Q_OBJECT

 public:
  /// `announce` hears the whole appearance, first when all questions of the start have been answered and
  /// then with each setting that the desktop changes.
  explicit QtAppearance(std::function<void(const Appearance&)> announce);

 private slots:
  void settingChanged(const QDBusMessage& message);

 private:
  void ask(QDBusConnection& bus, const QString& key);
  void apply(const QString& key, const QVariant& value);
  void answered(const QString& key);

  std::function<void(const Appearance&)> announce_;
  Appearance appearance_;
  std::set<QString> unanswered_;
};

}  // namespace bkuk::host
