#include "platform/appkit/NSTruncatedLine.h"

#include "platform/foundation/NSString.h"

namespace bkuk {

namespace {

constexpr char16_t ellipsis = u'\u2026';

bool isSecondOfPair(std::u16string_view text, std::size_t index) {
  return index < text.size() && text[index] >= 0xDC00 && text[index] <= 0xDFFF;
}

// The text with only `kept` of its units and an ellipsis in place of the others. Pairs stay whole.
NSString shortened(std::u16string_view text, std::size_t kept, NSLineBreakMode mode) {
  std::size_t head = kept;
  if (mode == NSLineBreakMode::truncatingHead) head = 0;
  if (mode == NSLineBreakMode::truncatingMiddle) head = (kept + 1) / 2;
  std::size_t tail = text.size() - (kept - head);
  if (isSecondOfPair(text, head)) --head;
  if (isSecondOfPair(text, tail)) ++tail;
  return NSString(std::u16string(text.substr(0, head)) + ellipsis + std::u16string(text.substr(tail)));
}

}  // namespace

Ref<CTLine> NSTruncatedLine(const NSString& text, const Ref<CTFont>& font, CGFloat width,
                            NSLineBreakMode mode) {
  auto whole = make<CTLine>(text, font);
  if (mode < NSLineBreakMode::truncatingHead || whole->width() <= width) return whole;
  const auto lineOf = [&](std::size_t kept) {
    return make<CTLine>(shortened(text.units(), kept, mode), font);
  };
  std::size_t fits = 0;
  std::size_t tooMuch = text.length();
  while (tooMuch - fits > 1) {
    const std::size_t middle = fits + (tooMuch - fits) / 2;
    (lineOf(middle)->width() <= width ? fits : tooMuch) = middle;
  }
  return lineOf(fits);
}

}  // namespace bkuk
