#include "host/qt/text/QtWordShaper.h"

#include <QtGui/QGlyphRun>
#include <QtGui/QTextLayout>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "host/qt/text/TextCharacters.h"

namespace bkuk::host {

namespace {

constexpr double em = QtFace::layoutSize;
constexpr double spacing = 1.0 / 64;
constexpr QChar separator(0x2003);  // an em space, to which no face kerns its letters

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
  QString word = QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
  for (auto& c : word) c = visibleForm(c);
  replaceLoneSurrogates(word);
  return word;
}

// Joiners and variation selectors say how others are drawn; no face needs a glyph for them.
bool needsGlyph(char32_t character) {
  const bool isSelector =
      (character >= 0xFE00 && character <= 0xFE0F) || (character >= 0xE0100 && character <= 0xE01EF);
  return !isSelector && QChar::category(character) != QChar::Other_Format;
}

bool canDraw(const QRawFont& face, QStringView text) {
  return std::ranges::all_of(text.toUcs4(), [&](char32_t character) {
    return !needsGlyph(character) || face.supportsCharacter(character);
  });
}

struct PlacedGlyph {
  std::uint32_t index;
  QRawFont font;
  QPointF position;  // pixels, y down from the baseline
};

/// A text that is shaped on one line.
class ShapedLine {
 public:
  ShapedLine(const QString& text, const WordStyle& style)
      : layout_(text, style.face->layoutFont(style.usesPairKerning)) {
    const bool isRightToLeft = style.direction == TextDirection::rightToLeft;
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setUseDesignMetrics(true);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    layout_.setTextOption(option);
    // Otherwise the end of the layout forgets the glyphs, and the first question shapes the text again.
    layout_.setCacheEnabled(true);
    layOut();
    const auto formats = facesOfTornCharacters(style.face->layoutFont(style.usesPairKerning));
    if (formats.isEmpty()) return;
    layout_.setFormats(formats);
    layOut();
  }

  [[nodiscard]] bool startsCharacter(int index) const {
    return layout_.text()[index].unicode() < 0x300 || layout_.isValidCursorPosition(index);
  }
  [[nodiscard]] const QTextLine& line() const { return line_; }

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

 private:
  void layOut() {
    layout_.beginLayout();
    line_ = layout_.createLine();
    layout_.endLayout();
  }

  // Fallback looks for a face code point by code point, and so tears a joined emoji of which the text's own
  // face has a part. Such a character is set in that one of its faces that has all of it.
  [[nodiscard]] QList<QTextLayout::FormatRange> facesOfTornCharacters(const QFont& font) const {
    QList<QTextLayout::FormatRange> formats;
    const auto length = static_cast<int>(layout_.text().size());
    for (int start = 0, end = 0; start < length; start = end) {
      for (end = start + 1; end < length && !startsCharacter(end);) ++end;
      const auto family = end - start > 1 ? familyOfTorn(start, end - start) : QString();
      if (family.isEmpty()) continue;
      QTextCharFormat format;
      QFont face = font;
      face.setFamilies({family});
      format.setFont(face);
      formats.push_back({start, end - start, format});
    }
    return formats;
  }

  // Empty for a character that is whole, or that no face of it can draw.
  [[nodiscard]] QString familyOfTorn(int start, int length) const {
    const auto runs = line_.glyphRuns(start, length);
    const auto isOfFirst = [&](const QGlyphRun& run) { return run.rawFont() == runs[0].rawFont(); };
    if (std::ranges::all_of(runs, isOfFirst)) return {};
    const auto text = QStringView(layout_.text()).mid(start, length);
    const auto found =
        std::ranges::find_if(runs, [&](const QGlyphRun& run) { return canDraw(run.rawFont(), text); });
    return found != runs.end() ? found->rawFont().familyName() : QString();
  }

  QTextLayout layout_;
  QTextLine line_;
};

// Whether each code unit of a line that runs from left to right has one glyph, one behind the other.
bool hasOneGlyphForEach(const std::vector<PlacedGlyph>& glyphs, qsizetype units) {
  const auto standsBefore = [](const PlacedGlyph& a, const PlacedGlyph& b) {
    return a.position.x() < b.position.x();
  };
  return static_cast<qsizetype>(glyphs.size()) == units &&
         std::ranges::adjacent_find(glyphs, std::not_fn(standsBefore)) == glyphs.end();
}

// The word of such glyphs; another one follows them.
std::shared_ptr<const ShapedWord> plainWord(const PlacedGlyph* glyphs, std::size_t length,
                                            QtRawFonts& rawFonts) {
  ShapedWord word;
  word.characterCount = static_cast<int>(length);
  for (std::size_t i = 0; i < length; ++i) {
    const auto& glyph = glyphs[i];
    const double advance = (glyphs[i + 1].position.x() - glyph.position.x() - spacing) / em;
    word.units.push_back({std::max(0.0, advance), true});
    word.glyphs.push_back({glyph.index, rawFonts.number(glyph.font), static_cast<std::uint32_t>(i), 0,
                           glyph.position.y() / em});
    word.width += word.units.back().advance;
  }
  return std::make_shared<const ShapedWord>(std::move(word));
}

/// Reads off where the characters and glyphs of one word of a line are.
class WordReader {
 public:
  WordReader(const ShapedLine& shaped, int offset, int length, TextDirection direction)
      : isRightToLeft_(direction == TextDirection::rightToLeft),
        shaped_(shaped),
        line_(shaped.line()),
        offset_(offset) {
    findCharacters(length);
  }

  [[nodiscard]] std::shared_ptr<const ShapedWord> word(QtRawFonts& rawFonts) {
    readUnits();
    readGlyphs(rawFonts);
    return std::make_shared<const ShapedWord>(std::move(word_));
  }

 private:
  void findCharacters(int length) {
    for (int i = 0; i < length; ++i) {
      if (i == 0 || shaped_.startsCharacter(i + offset_)) starts_.push_back(i);
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
    const auto all = shaped_.glyphs(offset_, ends_.back());
    if (standsOneToOne(all)) {
      for (std::size_t i = 0; i < all.size(); ++i) add(all[i], characterFromLeft(i), rawFonts);
      return;
    }
    std::vector<bool> isTaken(all.size());
    for (std::size_t i = 0; i < starts_.size(); ++i) {
      for (const auto& glyph : shaped_.glyphs(starts_[i] + offset_, ends_[i] - starts_[i]))
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
  const ShapedLine& shaped_;
  const QTextLine& line_;
  int offset_;  // of the word in the line
  std::vector<int> starts_;
  std::vector<int> ends_;
  std::vector<double> lefts_;
  ShapedWord word_;
};

}  // namespace

std::shared_ptr<const ShapedWord> shapeWord(std::u16string_view text, const WordStyle& style,
                                            QtRawFonts& rawFonts) {
  const QString line = overridden(shapeable(text), style.direction);
  const auto length = static_cast<int>(text.size());
  return WordReader(ShapedLine(line, style), static_cast<int>(line.size()) - length, length, style.direction)
      .word(rawFonts);
}

std::vector<std::shared_ptr<const ShapedWord>> shapeWords(std::span<const std::u16string_view> words,
                                                          const WordStyle& style, QtRawFonts& rawFonts) {
  QString text;
  for (const auto& word : words) text += shapeable(word) + separator;
  const ShapedLine line(text, style);
  const auto glyphs = line.glyphs(-1, -1);
  const bool isPlain = hasOneGlyphForEach(glyphs, text.size());
  std::vector<std::shared_ptr<const ShapedWord>> shaped;
  std::size_t offset = 0;
  for (const auto& word : words) {
    const auto read = [&] {
      const auto length = static_cast<int>(word.size());
      return WordReader(line, static_cast<int>(offset), length, style.direction).word(rawFonts);
    };
    shaped.push_back(isPlain ? plainWord(&glyphs[offset], word.size(), rawFonts) : read());
    offset += word.size() + 1;
  }
  return shaped;
}

}  // namespace bkuk::host
