#include "host/qt/QtFonts.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtGui/QRawFont>
#include <algorithm>
#include <utility>

#include "host/qt/FontTables.h"
#include "host/qt/QtApplication.h"
#include "host/qt/QtFont.h"

namespace bkuk::host {

namespace {

constexpr int lightestWeight = 1;
constexpr int heaviestWeight = 1000;

QFont styledFont(const QString& family, const QString& style) {
  QFont font(family);
  font.setStyleName(style);
  font.setStyleStrategy(QFont::NoFontMerging);
  return font;
}

// "DejaVuSans-Bold" most likely belongs to "DejaVu Sans".
bool resembles(const QString& family, const QString& postScriptName) {
  QString plain = family;
  plain.remove(u' ').remove(u'-');
  return QString(postScriptName).remove(u'-').startsWith(plain, Qt::CaseInsensitive);
}

}  // namespace

std::shared_ptr<const Font> QtFonts::systemFont(double size, FontWeight weight) {
  QtApplication::shared(QtApplication::Purpose::drawing);
  QFont font = QGuiApplication::font();
  font.setWeight(static_cast<QFont::Weight>(std::clamp(weight, lightestWeight, heaviestWeight)));
  return std::make_shared<QtFont>(font, size);
}

std::shared_ptr<const Font> QtFonts::font(std::string_view postScriptName, double size) {
  QtApplication::shared(QtApplication::Purpose::drawing);
  const auto found = face(std::string(postScriptName));
  return found ? std::make_shared<QtFont>(*found, size) : nullptr;
}

std::optional<QFont> QtFonts::face(const std::string& postScriptName) {
  if (postScriptName.empty()) return std::nullopt;
  if (!faces_.contains(postScriptName)) indexFamiliesLike(postScriptName);
  if (!faces_.contains(postScriptName)) indexEverything();
  const auto found = faces_.find(postScriptName);
  return found == faces_.end() ? std::nullopt : std::optional(found->second);
}

void QtFonts::indexFamiliesLike(std::string_view postScriptName) {
  const auto name = QString::fromUtf8(postScriptName.data(), static_cast<qsizetype>(postScriptName.size()));
  for (const auto& family : QFontDatabase::families()) {
    if (resembles(family, name)) indexFamily(family);
  }
}

void QtFonts::indexEverything() {
  if (std::exchange(indexedEverything_, true)) return;
  for (const auto& family : QFontDatabase::families()) indexFamily(family);
}

void QtFonts::indexFamily(const QString& family) {
  if (!indexed_.insert(family).second) return;
  for (const auto& style : QFontDatabase::styles(family)) {
    QFont font = styledFont(family, style);
    const auto name = FontTables(QRawFont::fromFont(font)).postScriptName();
    font.setStyleStrategy(QFont::PreferDefault);
    if (!name.empty()) faces_.try_emplace(name, font);
  }
}

}  // namespace bkuk::host
