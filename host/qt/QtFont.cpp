#include "host/qt/QtFont.h"

#include <QtGui/QTextLayout>
#include <algorithm>
#include <cmath>

#include "host/qt/FontTables.h"
#include "host/qt/QtTextLine.h"

namespace bkuk::host {

namespace {

constexpr double maximumSize = 10000;
constexpr double layoutScale = 32;

double usableSize(double size) { return std::isfinite(size) && size > 0 ? std::min(size, maximumSize) : 1; }

// The layout counts in 64ths of a pixel in 32 bits, so large sizes and long texts get less precision.
int layoutPixelSize(double size, std::size_t length) {
  constexpr double longestLine = 1 << 23;
  constexpr double largestGlyph = 16000;
  const double affordable = longestLine / static_cast<double>(std::max<std::size_t>(length, 1));
  const double wanted = std::min({size * layoutScale, largestGlyph, affordable});
  return std::max(1, static_cast<int>(std::lround(wanted)));
}

QFont withPixelSize(QFont font, int pixelSize) {
  font.setPixelSize(pixelSize);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QString onOneLine(std::u16string_view text) {
  QString line = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
  const auto isBreak = [](QChar c) {
    return c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == QChar(0x85) ||
           c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
  };
  std::replace_if(line.begin(), line.end(), isBreak, QChar(u' '));
  return line;
}

void layOut(QTextLayout& layout, TextDirection direction) {
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  option.setTextDirection(direction == TextDirection::leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
  option.setUseDesignMetrics(true);
  // The line starts at its own left edge whatever its direction.
  option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  layout.setTextOption(option);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
}

QGlyphRun scaledDown(QGlyphRun run, double factor, double baseline, double size) {
  auto positions = run.positions();
  for (auto& position : positions) position = {position.x() * factor, (position.y() - baseline) * factor};
  auto font = run.rawFont();
  font.setPixelSize(size);
  run.setRawFont(font);
  run.setPositions(positions);
  return run;
}

FontMetrics metricsOf(const QRawFont& font, double size) {
  const FontTables tables(font);
  if (const auto metrics = tables.metrics(size)) return *metrics;
  return {font.ascent(), font.descent(), font.leading(), font.capHeight(), font.xHeight()};
}

}  // namespace

QtFont::QtFont(const QFont& face, double size)
    : size_(usableSize(size)), layoutFont_(withPixelSize(face, layoutPixelSize(size_, 1))) {
  rawFont_ = QRawFont::fromFont(layoutFont_);
  rawFont_.setPixelSize(size_);
  metrics_ = metricsOf(rawFont_, size_);
}

std::string QtFont::postScriptName() const { return FontTables(rawFont_).postScriptName(); }

std::shared_ptr<const TextLine> QtFont::shape(std::u16string_view text, TextDirection direction) const {
  if (text.empty()) return std::make_shared<QtTextLine>(QList<QGlyphRun>(), 0);
  const int pixelSize = layoutPixelSize(size_, text.size());
  QTextLayout layout(onOneLine(text), withPixelSize(layoutFont_, pixelSize));
  layOut(layout, direction);
  const auto line = layout.lineAt(0);
  const double factor = size_ / pixelSize;
  QList<QGlyphRun> runs;
  for (const auto& run : line.glyphRuns()) runs.append(scaledDown(run, factor, line.ascent(), size_));
  return std::make_shared<QtTextLine>(std::move(runs), line.horizontalAdvance() * factor);
}

}  // namespace bkuk::host
