#include "host/qt/text/QtFonts.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <algorithm>
#include <utility>
#include <vector>

#include "host/qt/desktop/QtApplication.h"
#include "host/qt/text/QtFont.h"
#include "host/qt/text/QtLanguageFaces.h"
#include "host/support/FontStandIns.h"

namespace bkuk::host {

namespace {

QFont::Weight usableWeight(FontWeight weight) {
  return static_cast<QFont::Weight>(std::clamp(weight, 1, 1000));
}

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
  font.setWeight(usableWeight(weight));
  return made(faceOf(font), size);
}

std::shared_ptr<const Font> QtFonts::font(std::string_view postScriptName, double size) {
  QtApplication::shared(QtApplication::Purpose::drawing);
  const auto found = face(std::string(postScriptName));
  return found ? made(found, size) : nullptr;
}

std::shared_ptr<const Font> QtFonts::fontInFamily(std::string_view family, double size, FontWeight weight) {
  QtApplication::shared(QtApplication::Purpose::drawing);
  const auto name = registered_.nearestInFamily(family, weight);
  const auto registered = name ? face(*name) : nullptr;
  const auto installed = installedFace(family, weight);
  if (!registered && !installed) return nullptr;
  const bool isRegistered = !installed || (registered && registered->metrics().distance(weight) <=
                                                             installed->metrics().distance(weight));
  return made(isRegistered ? registered : installed, size);
}

std::shared_ptr<const Font> QtFonts::fontForLanguage(std::string_view language, double size,
                                                     FontWeight weight) {
  QtApplication::shared(QtApplication::Purpose::drawing);
  const auto font = host::fontForLanguage(language, usableWeight(weight));
  return font ? made(faceOf(*font), size) : systemFont(size, weight);
}

FontRegistration QtFonts::registerFile(const std::string& path) {
  QtApplication::shared(QtApplication::Purpose::drawing);
  auto registration = registered_.registerFile(path);
  for (const auto& name : registration.names) faces_.erase(name);
  return registration;
}

std::shared_ptr<const TextParagraph> QtFonts::shape(std::u16string_view text, std::span<const TextRun> runs,
                                                    TextDirection direction) {
  std::vector<StyledRun> styled;
  styled.reserve(runs.size());
  for (const auto& run : runs) {
    const auto& font = static_cast<const QtFont&>(*run.font);
    styled.push_back({run.length, &font.face(), font.size(), run.kern, run.usesPairKerning});
  }
  return shaper_->paragraph(text, styled, direction);
}

std::shared_ptr<const Font> QtFonts::made(const Face& face, double size) const {
  return std::make_shared<QtFont>(face, size, shaper_);
}

QtFonts::Face QtFonts::faceOf(const QFont& font) {
  auto& face = facesOfFonts_[font.key()];
  if (!face) face = std::make_shared<QtFace>(font);
  return face;
}

QtFonts::Face QtFonts::face(const std::string& postScriptName) {
  if (postScriptName.empty()) return nullptr;
  if (const auto found = faces_.find(postScriptName); found != faces_.end()) return found->second;
  if (const auto font = registered_.font(postScriptName)) {
    return faces_[postScriptName] = std::make_shared<QtFace>(*font, registered_.familyName(postScriptName));
  }
  if (!installed_.contains(postScriptName)) indexFamiliesLike(postScriptName);
  if (!installed_.contains(postScriptName)) {
    // Looking at every face is not worth it for names that stand for others anyway.
    if (auto face = standIn(postScriptName)) return faces_[postScriptName] = face;
    indexEverything();
  }
  const auto found = installed_.find(postScriptName);
  if (found == installed_.end()) return nullptr;
  return faces_[postScriptName] = std::make_shared<QtFace>(found->second);
}

// Whatever Qt would make of a face that is not as heavy as was asked for: the face itself, by its name.
QtFonts::Face QtFonts::installedFace(std::string_view family, FontWeight weight) {
  const auto name = QString::fromUtf8(family.data(), static_cast<qsizetype>(family.size()));
  if (!QFontDatabase::hasFamily(name)) return nullptr;
  QFont font(name);
  font.setWeight(usableWeight(weight));
  font.setStretch(QFont::Unstretched);
  font.setStyleStrategy(QFont::NoFontMerging);
  return face(QtFace::postScriptNameOf(font));
}

QtFonts::Face QtFonts::standIn(std::string_view postScriptName) {
  const auto wanted = standInFor(postScriptName);
  if (!wanted) return nullptr;
  return static_cast<const QtFont&>(*fontForLanguage(wanted->language, 1, wanted->weight)).sharedFace();
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
    const auto name = QtFace::postScriptNameOf(font);
    font.setStyleStrategy(QFont::PreferDefault);
    if (!name.empty()) installed_.try_emplace(name, font);
  }
}

}  // namespace bkuk::host
