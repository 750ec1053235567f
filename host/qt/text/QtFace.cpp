#include "host/qt/text/QtFace.h"

#include <QtGui/QPainterPath>
#include <span>
#include <utility>

namespace bkuk::host {

namespace {

/// The bytes of a face's tables, for as long as they are read.
struct LoadedTables {
  explicit LoadedTables(const QRawFont& font)
      : head(font.fontTable("head")),
        hhea(font.fontTable("hhea")),
        os2(font.fontTable("OS/2")),
        post(font.fontTable("post")),
        name(font.fontTable("name")) {}

  [[nodiscard]] FontTables tables() const {
    const auto bytes = [](const QByteArray& table) {
      return std::as_bytes(std::span(table.constData(), static_cast<std::size_t>(table.size())));
    };
    return {bytes(head), bytes(hhea), bytes(os2), bytes(post), bytes(name)};
  }

  QByteArray head, hhea, os2, post, name;
};

std::uint32_t nextId() {
  static std::uint32_t last = 0;
  return ++last;
}

QFont forLayout(QFont font, bool usesPairKerning) {
  font.setPixelSize(QtFace::layoutSize);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(usesPairKerning);
  // Spaced letters are never joined into ligatures; shapers take the smallest spacing there is back out.
  font.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64);
  return font;
}

// How far a letter rises above the baseline, in pixels.
double inkHeight(const QRawFont& font, QChar letter) {
  const auto glyphs = font.glyphIndexesForString(letter);
  return glyphs.isEmpty() ? 0 : -font.pathForGlyph(glyphs.first()).boundingRect().top();
}

// For faces without tables, such as bitmap fonts.
FaceMetrics roundedMetrics(const QRawFont& font) {
  FaceMetrics metrics;
  metrics.unitsPerEm = QtFace::layoutSize;
  metrics.units.ascent = font.ascent();
  metrics.units.descent = font.descent();
  metrics.units.leading = font.leading();
  metrics.units.underlinePosition = -font.underlinePosition();
  metrics.units.underlineThickness = font.lineThickness();
  metrics.units.bounds = {0, -font.descent(), font.maxCharWidth(), font.ascent() + font.descent()};
  return metrics;
}

FaceMetrics metricsOf(const QRawFont& font, const FontTables& tables) {
  auto metrics = readMetrics(tables).value_or(roundedMetrics(font));
  if (metrics.hasLetterHeights) return metrics;
  const double unit = metrics.unitsPerEm / QtFace::layoutSize;
  metrics.units.xHeight = inkHeight(font, u'x') * unit;
  metrics.units.capHeight = inkHeight(font, u'H') * unit;
  return metrics;
}

}  // namespace

QtFace::QtFace(QFont font, std::string family)
    : id_(nextId()),
      layoutFont_(forLayout(font, true)),
      unkernedFont_(forLayout(std::move(font), false)),
      familyName_(std::move(family)) {
  rawFont_ = QRawFont::fromFont(layoutFont_);
  const LoadedTables loaded(rawFont_);
  const auto tables = loaded.tables();
  metrics_ = metricsOf(rawFont_, tables);
  postScriptName_ = host::postScriptName(tables);
  if (familyName_.empty()) familyName_ = host::familyName(tables);
}

std::string QtFace::postScriptNameOf(const QFont& font) {
  const QByteArray name = QRawFont::fromFont(font).fontTable("name");
  FontTables tables;
  tables.name = std::as_bytes(std::span(name.constData(), static_cast<std::size_t>(name.size())));
  return host::postScriptName(tables);
}

}  // namespace bkuk::host
