#include "host/qt/QtWordShaper.h"

#include <QtGui/QGlyphRun>
#include <QtGui/QTextLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "host/qt/TextCharacters.h"

namespace bkuk::host {

namespace {

constexpr double em = QtFace::layoutSize;
constexpr double spacing = 1.0 / 64;

bool runsAgainst(QChar c, TextDirection direction) {
  const auto kind = c.direction();
  if (direction == TextDirection::leftToRight) return kind == QChar::DirR || kind == QChar::DirAL;
  return kind == QChar::DirL || kind == QChar::DirEN || kind == QChar::DirAN;
}

// With a mark in front that overrides the direction of letters that would not go along with it.
QString overridden(QString word, TextDirection direction) {
  for (const QChar c : word) {
    if (!runsAgainst(c, direction)) continue;
    return QChar(direction == TextDirection::leftToRight ? 0x202D : 0x202E) + word;
  }
  return word;
}

QString shapeable(std::u16string_view text) {
  QString word = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
  for (auto& c : word) c = visibleForm(c);
  replaceLoneSurrogates(word);
  return word;
}

struct PlacedGlyph {
  std::uint32_t index;
  QRawFont font;
  QPointF position;  // pixels, y down from the baseline
};

/// Shapes one word and reads off where its characters and glyphs are.
class WordReader {
 public:
  WordReader(std::u16string_view text, const WordStyle& style)
      : isRightToLeft_(style.direction == TextDirection::rightToLeft),
        layout_(overridden(shapeable(text), style.direction), style.face->layoutFont(style.usesPairKerning)),
        offset_(static_cast<int>(layout_.text().size()) - static_cast<int>(text.size())) {
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(isRightToLeft_ ? Qt::RightToLeft : Qt::LeftToRight);
    option.setUseDesignMetrics(true);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    layout_.setTextOption(option);
    // Otherwise the end of the layout forgets the glyphs, and the first question shapes the word again.
    layout_.setCacheEnabled(true);
    layout_.beginLayout();
    line_ = layout_.createLine();
    layout_.endLayout();
    findCharacters(static_cast<int>(text.size()));
  }

  [[nodiscard]] std::shared_ptr<const ShapedWord> word(QtRawFonts& rawFonts) {
    readUnits();
    readGlyphs(rawFonts);
    return std::make_shared<const ShapedWord>(std::move(word_));
  }

 private:
  void findCharacters(int length) {
    const QString& text = layout_.text();
    for (int i = 0; i < length; ++i) {
      const bool standsAlone = text[i + offset_].unicode() < 0x300;
      if (i == 0 || standsAlone || layout_.isValidCursorPosition(i + offset_)) starts_.push_back(i);
    }
    ends_.assign(starts_.begin() + 1, starts_.end());
    ends_.push_back(length);
    word_.units.assign(static_cast<std::size_t>(length), {0, false});
  }

  void readUnits() {
    double trailing = line_.cursorToX(offset_);
    for (std::size_t i = 0; i < starts_.size(); ++i) {
      // All in one direction: where a character ends the next begins.
      const double leading = std::exchange(trailing, line_.cursorToX(ends_[i] + offset_));
      lefts_.push_back(std::min(leading, trailing));
      const double advance = std::max(0.0, std::abs(trailing - leading) - spacing) / em;
      word_.units[static_cast<std::size_t>(starts_[i])] = {advance, true};
      word_.width += advance;
    }
    word_.characterCount = static_cast<int>(starts_.size());
  }

  [[nodiscard]] std::vector<PlacedGlyph> glyphs(int from, int length) const {
    std::vector<PlacedGlyph> found;
    for (const auto& run : line_.glyphRuns(from, length)) {
      const auto indexes = run.glyphIndexes();
      const auto positions = run.positions();
      for (qsizetype i = 0; i < indexes.size(); ++i) {
        found.push_back({indexes[i], run.rawFont(), positions[i] - QPointF(0, line_.ascent())});
      }
    }
    return found;
  }

  void add(const PlacedGlyph& glyph, std::size_t character, QtRawFonts& rawFonts) {
    word_.glyphs.push_back({glyph.index, rawFonts.number(glyph.font),
                            static_cast<std::uint32_t>(starts_[character]),
                            (glyph.position.x() - lefts_[character]) / em, glyph.position.y() / em});
  }

  // Whether glyph after glyph stands in character after character, from the left.
  [[nodiscard]] bool standsOneToOne(const std::vector<PlacedGlyph>& all) const {
    if (all.size() != starts_.size()) return false;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const std::size_t character = characterFromLeft(i);
      const double advance = word_.units[static_cast<std::size_t>(starts_[character])].advance * em;
      const double dx = all[i].position.x() - lefts_[character];
      if (advance == 0 || dx < -1 || dx >= advance) return false;
    }
    return true;
  }

  [[nodiscard]] std::size_t characterFromLeft(std::size_t i) const {
    return isRightToLeft_ ? starts_.size() - 1 - i : i;
  }

  void readGlyphs(QtRawFonts& rawFonts) {
    const auto all = glyphs(-1, -1);
    if (standsOneToOne(all)) {
      for (std::size_t i = 0; i < all.size(); ++i) add(all[i], characterFromLeft(i), rawFonts);
      return;
    }
    std::vector<bool> isTaken(all.size());
    for (std::size_t i = 0; i < starts_.size(); ++i) {
      for (const auto& glyph : glyphs(starts_[i] + offset_, ends_[i] - starts_[i]))
        take(glyph, all, isTaken, i, rawFonts);
    }
  }

  // A glyph that several characters share belongs to the first.
  void take(const PlacedGlyph& glyph, const std::vector<PlacedGlyph>& all, std::vector<bool>& isTaken,
            std::size_t character, QtRawFonts& rawFonts) {
    for (std::size_t i = 0; i < all.size(); ++i) {
      const bool isSame = !isTaken[i] && all[i].index == glyph.index && all[i].position == glyph.position;
      if (!isSame) continue;
      isTaken[i] = true;
      return add(glyph, character, rawFonts);
    }
  }

  bool isRightToLeft_;
  QTextLayout layout_;
  int offset_;  // of the word in what is laid out
  QTextLine line_;
  std::vector<int> starts_;
  std::vector<int> ends_;
  std::vector<double> lefts_;
  ShapedWord word_;
};

}  // namespace

std::shared_ptr<const ShapedWord> shapeWord(std::u16string_view text, const WordStyle& style,
                                            QtRawFonts& rawFonts) {
  return WordReader(text, style).word(rawFonts);
}

}  // namespace bkuk::host
