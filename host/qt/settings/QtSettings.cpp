#include "host/qt/settings/QtSettings.h"

#include <QtCore/QLocale>
#include <QtGui/QGuiApplication>
#include <utility>

#include "host/qt/QtLoop.h"
#include "host/qt/desktop/QtApplication.h"

namespace bkuk::host {

QtSettings::QtSettings(const QtApplication& application, QtLoop& loop)
    : application_(application), portal_([this, &loop](const Appearance& appearance) {
        appearance_.announce(appearance);
        if (appearance_.hasEvent()) loop.noteQueued();
      }) {
  portal_.awaitFirstAnswers();
  appearance_.dispatch();
}

void QtSettings::setAppearanceHandler(std::function<void()> changed) {
  appearance_.setHandler(std::move(changed));
}

std::vector<std::string> QtSettings::languages() const {
  std::vector<std::string> result;
  for (const auto& language : QLocale::system().uiLanguages()) {
    // The locale of programs without one speaks American English.
    result.push_back(language == QLatin1String("C") ? "en-US" : language.toStdString());
  }
  return result;
}

// An application of Qt's decides for itself, by its translations; otherwise the user's language does.
TextDirection QtSettings::layoutDirection() const {
  const auto direction =
      application_.isAdopted() ? QGuiApplication::layoutDirection() : QLocale::system().textDirection();
  return direction == Qt::RightToLeft ? TextDirection::rightToLeft : TextDirection::leftToRight;
}

}  // namespace bkuk::host
