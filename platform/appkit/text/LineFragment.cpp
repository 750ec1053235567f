#include "platform/appkit/text/LineFragment.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/text/LineBreaker.h"

namespace bkuk {

LineFragment::Glyphs& LineFragment::glyphs() const {
  if (!glyphs_) {
    glyphs_ = std::make_shared<Glyphs>();
    if (content.paragraph) glyphs_->line = content.paragraph->line(content.from, content.to);
  }
  return *glyphs_;
}

// How many of the line's characters have a glyph or hide behind one; the others hang at its end.
std::size_t LineFragment::shownCount() const {
  const std::size_t units = content.to - content.from;
  return content.hasEllipsis ? units - 1 + content.hidden.length : units;
}

// The code unit of the shaped line that shows the character.
std::size_t LineFragment::unitOf(std::size_t offset) const {
  if (!content.hasEllipsis || offset <= content.hidden.location) return offset;
  if (offset < NSMaxRange(content.hidden)) return content.hidden.location + 1;
  return offset - content.hidden.length + 1;
}

void LineFragment::findGaps(const NSAttributedString& text) const {
  auto& gaps = glyphs().gaps;
  if (content.gap == 0 || !gaps.empty()) return;
  const auto units = glyphs().line->units();
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (isLineSpace(text.string().units()[range.location + i])) gaps.push_back(units[i].x);
  }
  std::ranges::sort(gaps);
}

// How far what stood at `x` is moved to the right by the spaces left of it.
CGFloat LineFragment::shiftAt(CGFloat x) const {
  const auto& gaps = glyphs_->gaps;
  return content.gap * static_cast<CGFloat>(std::ranges::lower_bound(gaps, x) - gaps.begin());
}

std::span<const GlyphBox> LineFragment::boxes(const NSAttributedString& text) const {
  auto& boxes = glyphs().boxes;
  if (!boxes.empty()) return boxes;
  findGaps(text);
  const std::size_t shown = shownCount();
  const CGFloat end = isRightToLeft ? content.left : content.left + content.width;
  boxes.assign(range.length, {end, 0, isRightToLeft});
  if (!glyphs_->line) return boxes;
  const auto units = glyphs_->line->units();
  for (std::size_t i = 0; i < std::min(shown, range.length); ++i) {
    const bool isHidden =
        content.hasEllipsis && i > content.hidden.location && NSLocationInRange(i, content.hidden);
    const auto& unit = units[isHidden ? content.hidden.location : unitOf(i)];
    const bool isGap = std::ranges::binary_search(glyphs_->gaps, unit.x) && unit.advance > 0;
    const CGFloat advance = unit.advance + (isGap ? content.gap : 0);
    const CGFloat left = content.left + unit.x + shiftAt(unit.x);
    boxes[i] = {left, advance, unit.isRightToLeft};
    // What hides behind an ellipsis stands behind it.
    if (isHidden) boxes[i] = {left + (unit.isRightToLeft ? 0 : advance), 0, unit.isRightToLeft};
  }
  return boxes;
}

void LineFragment::addPiece(NSRange pieceRange, const NSAttributeDictionary& attributes) const {
  const std::size_t from = unitOf(pieceRange.location - range.location);
  const std::size_t to = unitOf(NSMaxRange(pieceRange) - range.location);
  if (from >= to) return;
  const auto& line = glyphs_->line;
  const bool isWhole = from == 0 && to == line->units().size();
  const CGFloat shift = content.gap != 0 ? shiftAt(line->units()[from].x) : 0;
  glyphs_->pieces.push_back(
      {pieceRange, attributes, isWhole ? line : line->part(from, to), content.left + shift});
}

std::shared_ptr<const host::TextLine> LineFragment::part(NSRange characters) const {
  return glyphs().line->part(unitOf(characters.location - range.location),
                             unitOf(NSMaxRange(characters) - range.location));
}

// Between spaces that grow, words move apart.
void LineFragment::addWords(const NSAttributedString& text, NSRange run,
                            const NSAttributeDictionary& attributes) const {
  const auto units = text.string().units();
  for (std::size_t at = run.location; at < NSMaxRange(run);) {
    std::size_t end = at + 1;
    while (end < NSMaxRange(run) && isLineSpace(units[end]) == isLineSpace(units[at]) &&
           !isLineSpace(units[at]))
      ++end;
    addPiece({at, end - at}, attributes);
    at = end;
  }
}

const std::vector<TextPiece>& LineFragment::pieces(const NSAttributedString& text) const {
  auto& pieces = glyphs().pieces;
  if (std::exchange(glyphs_->hasPieces, true) || !glyphs_->line) return pieces;
  findGaps(text);
  const std::size_t end = range.location + std::min(shownCount(), range.length);
  for (std::size_t at = range.location; at < end;) {
    NSRange run;
    const auto& attributes = text.attributes(at, run, {at, end - at});
    if (content.gap != 0) addWords(text, run, attributes);
    if (content.gap == 0) addPiece(run, attributes);
    at = NSMaxRange(run);
  }
  // The ellipsis of a line that is cut off after its last character stands for none of its own.
  const bool isEllipsisLeft = content.hasEllipsis && content.hidden.length == 0 && !pieces.empty();
  if (isEllipsisLeft) {
    const std::size_t last = glyphs_->line->units().size() - 1;
    pieces.push_back({{end, 0}, pieces.back().attributes, glyphs_->line->part(last, last + 1), content.left});
  }
  return pieces;
}

}  // namespace bkuk
