#include "host/qt/text/QtTextParagraph.h"

#include <QtCore/QTextBoundaryFinder>
#include <algorithm>
#include <utility>

#include "host/qt/text/TextCharacters.h"

namespace bkuk::host {

namespace {

std::vector<LineBreak> breaksIn(const std::u16string& text) {
  std::vector<LineBreak> breaks(text.size() + 1, LineBreak::none);
  QTextBoundaryFinder finder(QTextBoundaryFinder::Line, QStringView(text).data(),
                             static_cast<qsizetype>(text.size()));
  for (auto at = finder.toNextBoundary(); at > 0; at = finder.toNextBoundary()) {
    const bool isMandatory = finder.boundaryReasons() & QTextBoundaryFinder::MandatoryBreak;
    breaks[static_cast<std::size_t>(at)] = isMandatory ? LineBreak::mandatory : LineBreak::allowed;
  }
  return breaks;
}

/// Puts the code units of a line one after the other, word by word from the left.
class UnitPlacer {
 public:
  UnitPlacer(std::size_t from, std::size_t to) : from_(from), to_(to), units_(to - from) {}

  void place(const PlacedWord& word) {
    const std::size_t count = word.word->units.size();
    if (!word.isRightToLeft) {
      for (std::size_t i = 0; i < count; ++i) place(word, i);
      return;
    }
    for (std::size_t i = count; i-- > 0;) {
      if (word.word->units[i].startsCharacter) place(word, i);
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (!word.word->units[i].startsCharacter) place(word, i);
    }
  }

  [[nodiscard]] double pen() const { return pen_; }
  [[nodiscard]] std::vector<TextUnit> take() { return std::move(units_); }

 private:
  void place(const PlacedWord& word, std::size_t i) {
    const std::size_t index = word.start + i;
    if (index < from_ || index >= to_) return;
    const auto& unit = word.word->units[i];
    auto& placed = units_[index - from_];
    placed.isRightToLeft = word.isRightToLeft;
    placed.startsCharacter = unit.startsCharacter;
    if (!unit.startsCharacter) {
      placed.x = index > from_ ? units_[index - from_ - 1].x : pen_;
      return;
    }
    placed.x = pen_;
    placed.advance = unit.advance * word.size + word.kern;
    pen_ += placed.advance;
  }

  std::size_t from_;
  std::size_t to_;
  std::vector<TextUnit> units_;
  double pen_ = 0;
};

}  // namespace

QtTextParagraph::QtTextParagraph(std::u16string text, TextDirection direction, std::vector<PlacedWord> words,
                                 std::shared_ptr<QtRawFonts> rawFonts)
    : text_(std::move(text)),
      direction_(direction),
      words_(std::move(words)),
      rawFonts_(std::move(rawFonts)) {
  for (const auto& word : words_) width_ += word.width();
}

std::span<const double> QtTextParagraph::advances() const {
  if (advances_.empty()) {
    advances_.reserve(text_.size());
    for (const auto& word : words_) {
      for (const auto& unit : word.word->units) {
        advances_.push_back(unit.startsCharacter ? unit.advance * word.size + word.kern : 0);
      }
    }
  }
  return advances_;
}

std::span<const LineBreak> QtTextParagraph::lineBreaks() const {
  if (lineBreaks_.empty()) lineBreaks_ = breaksIn(text_);
  return lineBreaks_;
}

std::shared_ptr<const TextLine> QtTextParagraph::line(std::size_t from, std::size_t to) const {
  to = std::min(to, text_.size());
  from = std::min(from, to);
  const bool isWhole = from == 0 && to == text_.size();
  if (isWhole) {
    if (auto living = wholeLine_.lock()) return living;
  }
  auto content = std::make_shared<TextLineContent>();
  content->words = visualWords(from, to);
  content->start = from;
  content->rawFonts = rawFonts_;
  UnitPlacer placer(from, to);
  for (const auto& word : content->words) placer.place(word);
  content->units = placer.take();
  auto line = std::make_shared<QtTextLine>(std::move(content), placer.pen(), 0, to - from);
  if (isWhole) wholeLine_ = line;
  return line;
}

std::vector<PlacedWord> QtTextParagraph::visualWords(std::size_t from, std::size_t to) const {
  const auto first = std::ranges::upper_bound(words_, from, {}, &PlacedWord::end);
  const auto last = std::ranges::lower_bound(first, words_.end(), to, {}, &PlacedWord::start);
  std::vector<PlacedWord> words(first, last);
  std::size_t visible = words.size();
  while (visible > 0 && isSpace(text_[words[visible - 1].start])) --visible;
  const auto trailing = words.begin() + static_cast<std::ptrdiff_t>(visible);
  const auto byRank = [](const PlacedWord& a, const PlacedWord& b) { return a.rank < b.rank; };
  std::stable_sort(words.begin(), trailing, byRank);
  if (direction_ == TextDirection::rightToLeft) {
    std::reverse(trailing, words.end());
    std::rotate(words.begin(), trailing, words.end());
  }
  return words;
}

}  // namespace bkuk::host
