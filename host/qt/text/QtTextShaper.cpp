#include "host/qt/text/QtTextShaper.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "host/qt/text/QtTextOrder.h"
#include "host/qt/text/QtWordShaper.h"
#include "host/qt/text/TextCharacters.h"

namespace bkuk::host {

namespace {

constexpr std::size_t longestRemembered = 256;
constexpr std::size_t mostWordsTogether = 16;

}  // namespace

/// Gathers the words of one paragraph, span by span and run by run.
class QtTextShaper::ParagraphBuilder {
 public:
  ParagraphBuilder(QtTextShaper& shaper, std::u16string_view text, std::span<const StyledRun> runs)
      : shaper_(shaper), text_(text), runs_(runs) {
    words_.reserve(text.size() / 4 + 2);
  }

  void add(const DirectedSpan& span) {
    const std::size_t first = words_.size();
    for (std::size_t at = span.from; at < span.to;) {
      const std::size_t end = std::min(span.to, runEnd(at));
      addWords(at, end, span);
      at = end;
    }
    // Within the span, words that come later stand left of those before where it runs leftwards.
    if (span.direction == TextDirection::leftToRight) return;
    const std::size_t count = words_.size() - first;
    for (std::size_t i = 0; i < count; ++i) words_[first + i].rank += count - 1 - i;
  }

  [[nodiscard]] std::vector<PlacedWord> take() { return std::move(words_); }

 private:
  // Ranks leave room for one word for each code unit of a span.
  void addWords(std::size_t from, std::size_t to, const DirectedSpan& span) {
    const bool isRightToLeft = span.direction == TextDirection::rightToLeft;
    while (from < to) {
      const auto rest = text_.substr(from, to - from);
      const std::size_t length = endOfWord(rest, 0);
      // Spaces are the same in both directions.
      const auto direction = isSpace(rest[0]) ? TextDirection::leftToRight : span.direction;
      words_.push_back({shaper_.word(rest, length, run(), direction), from, run().size, run().kern,
                        span.rank * (text_.size() + 1), isRightToLeft});
      from += length;
    }
  }

  // Where the run ends that holds the index; moves on to that run.
  std::size_t runEnd(std::size_t at) {
    while (run_ + 1 < runs_.size() && at >= runStart_ + runs_[run_].length) runStart_ += runs_[run_++].length;
    return run_ + 1 < runs_.size() ? runStart_ + runs_[run_].length : text_.size();
  }
  [[nodiscard]] const StyledRun& run() const { return runs_[run_]; }

  QtTextShaper& shaper_;
  std::u16string_view text_;
  std::span<const StyledRun> runs_;
  std::size_t run_ = 0;
  std::size_t runStart_ = 0;
  std::vector<PlacedWord> words_;
};

std::shared_ptr<const TextParagraph> QtTextShaper::paragraph(std::u16string_view text,
                                                             std::span<const StyledRun> runs,
                                                             TextDirection direction) {
  if (runs.size() != 1 || text.size() > longestRemembered) return shape(text, runs, direction);
  const auto& run = runs[0];
  const Style style{run.face->id(), run.usesPairKerning, direction, run.size, run.kern};
  if (const auto* found = paragraphs_.find(Lookup{style, text})) return *found;
  return paragraphs_.insert({style, std::u16string(text)}, shape(text, runs, direction));
}

std::shared_ptr<const TextParagraph> QtTextShaper::shape(std::u16string_view text,
                                                         std::span<const StyledRun> runs,
                                                         TextDirection direction) {
  if (runs.empty()) text = {};
  ParagraphBuilder builder(*this, text, runs);
  if (direction == TextDirection::leftToRight && !mayRunRightToLeft(text)) {
    builder.add({0, text.size(), direction, 0});
  } else if (!text.empty()) {
    for (const auto& span : directedSpans(text, direction, runs[0].face->layoutFont(true))) builder.add(span);
  }
  return std::make_shared<QtTextParagraph>(std::u16string(text), direction, builder.take(), rawFonts_);
}

std::shared_ptr<const ShapedWord> QtTextShaper::word(std::u16string_view text, std::size_t length,
                                                     const StyledRun& run, TextDirection direction) {
  const auto word = text.substr(0, length);
  const Style style{run.face->id(), run.usesPairKerning, direction, 0, 0};
  if (const auto* found = words_.find(Lookup{style, word})) return *found;
  const bool sharesLine = direction == TextDirection::leftToRight && mayShareLine(word);
  if (sharesLine && length < text.size()) return shapeNewWords(text, length, run, style);
  ++shapedWordCount_;
  return words_.insert({style, std::u16string(word)},
                       shapeWord(word, {run.face, run.usesPairKerning, direction}, *rawFonts_));
}

// Where one word is new, those behind it mostly are too: they are shaped along with it.
std::shared_ptr<const ShapedWord> QtTextShaper::shapeNewWords(std::u16string_view text, std::size_t length,
                                                              const StyledRun& run, const Style& style) {
  std::vector<std::u16string_view> words{text.substr(0, length)};
  const std::size_t end = std::min(text.size(), longestRemembered);
  for (std::size_t at = length; at < end && words.size() < mostWordsTogether;) {
    const auto word = text.substr(at, endOfWord(text, at) - at);
    at += word.size();
    const bool isNew = mayShareLine(word) && std::ranges::find(words, word) == words.end() &&
                       !words_.find(Lookup{style, word});
    if (isNew) words.push_back(word);
  }
  shapedWordCount_ += words.size();
  const auto shaped = shapeWords(words, {run.face, run.usesPairKerning, style.direction}, *rawFonts_);
  for (std::size_t i = 0; i < words.size(); ++i) words_.insert({style, std::u16string(words[i])}, shaped[i]);
  return shaped.front();
}

}  // namespace bkuk::host
