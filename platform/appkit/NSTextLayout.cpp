#include "platform/appkit/NSTextLayout.h"

#include <algorithm>
#include <optional>

#include "platform/appkit/NSTypesetter.h"

namespace bkuk {

NSTextLayout::NSTextLayout(const NSAttributedString& text, std::size_t from,
                           const NSTextLayoutOptions& options)
    : range_{std::min(from, text.length()), 0}, lines_(NSTypesetter(text, options).lines(from)) {
  if (!lines_.empty()) range_.length = NSMaxRange(lines_.back().range) - range_.location;
}

NSRect NSTextLayout::usedRect() const {
  if (lines_.empty()) return {};
  NSRect used = lines_.front().usedRect;
  for (const auto& line : lines_) used = used.united(line.usedRect);
  return used;
}

const NSLineFragment& NSTextLayout::lineOf(std::size_t character) const {
  const auto behind = [&](const NSLineFragment& line) { return NSMaxRange(line.range) <= character; };
  const auto found = std::partition_point(lines_.begin(), lines_.end(), behind);
  return found != lines_.end() ? *found : lines_.back();
}

const NSLineFragment& NSTextLayout::lineAt(CGFloat y) const {
  const auto above = [&](const NSLineFragment& line) { return line.rect.maxY() <= y; };
  const auto found = std::partition_point(lines_.begin(), lines_.end(), above);
  return found != lines_.end() ? *found : lines_.back();
}

std::span<const NSLineFragment> NSTextLayout::linesOf(NSRange range) const {
  const auto before = [&](const NSLineFragment& line) { return NSMaxRange(line.range) <= range.location; };
  const auto within = [&](const NSLineFragment& line) { return line.range.location < NSMaxRange(range); };
  const auto first = std::partition_point(lines_.begin(), lines_.end(), before);
  return {first, std::partition_point(first, lines_.end(), within)};
}

NSSize NSTextLayoutSize(const NSAttributedString& text, const NSTextLayoutOptions& options) {
  if (const auto size = NSTypesetter(text, options).sizeOfPlainLine()) return *size;
  return NSTextLayout(text, 0, options).usedRect().size;
}

}  // namespace bkuk
