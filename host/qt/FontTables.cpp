#include "host/qt/FontTables.h"

#include <QtCore/QStringDecoder>
#include <QtGui/QPainterPath>
#include <cstdint>

namespace bkuk::host {

namespace {

constexpr int postScriptNameId = 6;
constexpr int macintoshPlatform = 1;

// Big-endian numbers at byte offsets; reading past the end gives 0.
class TableReader {
 public:
  explicit TableReader(QByteArray bytes) : bytes_(std::move(bytes)) {}

  [[nodiscard]] bool holds(qsizetype size) const { return bytes_.size() >= size; }
  [[nodiscard]] std::uint16_t unsignedAt(qsizetype offset) const {
    return holds(offset + 2) ? static_cast<std::uint16_t>(byteAt(offset) << 8 | byteAt(offset + 1)) : 0;
  }
  [[nodiscard]] std::int16_t signedAt(qsizetype offset) const {
    return static_cast<std::int16_t>(unsignedAt(offset));
  }
  [[nodiscard]] QByteArray bytes(qsizetype offset, qsizetype length) const {
    return bytes_.mid(offset, length);
  }

 private:
  [[nodiscard]] unsigned byteAt(qsizetype offset) const {
    return static_cast<unsigned char>(bytes_.at(offset));
  }

  QByteArray bytes_;
};

// How far a letter rises above the baseline, in units of the face.
double inkHeight(QRawFont font, QChar letter, double unitsPerEm) {
  font.setPixelSize(unitsPerEm);
  const auto glyphs = font.glyphIndexesForString(letter);
  return glyphs.isEmpty() ? 0 : -font.pathForGlyph(glyphs.first()).boundingRect().top();
}

std::string decoded(const QByteArray& bytes, int platform) {
  if (platform == macintoshPlatform) return bytes.toStdString();
  const QString text = QStringDecoder(QStringDecoder::Utf16BE)(bytes);
  return text.toStdString();
}

}  // namespace

std::optional<FontMetrics> FontTables::metrics(double size) const {
  const TableReader head(font_.fontTable("head"));
  const TableReader hhea(font_.fontTable("hhea"));
  const TableReader os2(font_.fontTable("OS/2"));
  const double unitsPerEm = head.unsignedAt(18);
  if (unitsPerEm == 0 || !hhea.holds(10)) return std::nullopt;
  const double unit = size / unitsPerEm;
  FontMetrics metrics;
  metrics.ascent = hhea.signedAt(4) * unit;
  metrics.descent = -hhea.signedAt(6) * unit;
  metrics.leading = hhea.signedAt(8) * unit;
  // Older tables end before these two, and then the letters themselves tell.
  const bool hasHeights = os2.unsignedAt(0) >= 2 && os2.holds(90);
  metrics.xHeight = (hasHeights ? os2.signedAt(86) : inkHeight(font_, u'x', unitsPerEm)) * unit;
  metrics.capHeight = (hasHeights ? os2.signedAt(88) : inkHeight(font_, u'H', unitsPerEm)) * unit;
  return metrics;
}

std::string FontTables::postScriptName() const {
  const TableReader names(font_.fontTable("name"));
  const int count = names.unsignedAt(2);
  const int strings = names.unsignedAt(4);
  for (int i = 0; i < count; ++i) {
    const qsizetype record = 6 + 12 * qsizetype{i};
    if (names.unsignedAt(record + 6) != postScriptNameId) continue;
    const auto text = names.bytes(strings + names.unsignedAt(record + 10), names.unsignedAt(record + 8));
    return decoded(text, names.unsignedAt(record));
  }
  return {};
}

}  // namespace bkuk::host
