#include "platform/appkit/text/TextLayout.h"

#include <algorithm>
#include <optional>

#include "platform/appkit/text/Typesetter.h"

namespace bkuk {

TextLayout::TextLayout(const NSAttributedString& text, std::size_t from, const TextLayoutOptions& options)
    : range_{std::min(from, text.length()), 0}, lines_(Typesetter(text, options).lines(from)) {
  if (!lines_.empty()) range_.length = NSMaxRange(lines_.back().range) - range_.location;
}

NSRect TextLayout::usedRect() const {
  if (lines_.empty()) return {};
  NSRect used = lines_.front().usedRect;
  for (const auto& line : lines_) used = used.united(line.usedRect);
  return used;
}

const LineFragment& TextLayout::lineOf(std::size_t character) const {
  const auto behind = [&](const LineFragment& line) { return NSMaxRange(line.range) <= character; };
  const auto found = std::partition_point(lines_.begin(), lines_.end(), behind);
  return found != lines_.end() ? *found : lines_.back();
}

const LineFragment& TextLayout::lineAt(CGFloat y) const {
  const auto above = [&](const LineFragment& line) { return line.rect.maxY() <= y; };
  const auto found = std::partition_point(lines_.begin(), lines_.end(), above);
  return found != lines_.end() ? *found : lines_.back();
}

std::span<const LineFragment> TextLayout::linesOf(NSRange range) const {
  const auto before = [&](const LineFragment& line) { return NSMaxRange(line.range) <= range.location; };
  const auto within = [&](const LineFragment& line) { return line.range.location < NSMaxRange(range); };
  const auto first = std::partition_point(lines_.begin(), lines_.end(), before);
  return {first, std::partition_point(first, lines_.end(), within)};
}

NSSize textLayoutSize(const NSAttributedString& text, const TextLayoutOptions& options) {
  if (const auto size = Typesetter(text, options).sizeOfPlainLine()) return *size;
  return TextLayout(text, 0, options).usedRect().size;
}

}  // namespace bkuk
