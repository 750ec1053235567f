#include "platform/appkit/text/TextSegment.h"

namespace bkuk {

namespace {

constexpr char16_t lineSeparator = 0x2028;
constexpr char16_t paragraphSeparator = 0x2029;

constexpr bool isBreak(char16_t c) {
  if (c < 0x85) return c >= u'\n' && c <= u'\r';
  return c == 0x85 || c == lineSeparator || c == paragraphSeparator;
}

}  // namespace

TextSegment textSegmentAt(std::u16string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size() && !isBreak(text[end])) ++end;
  const NSRange range{from, end - from};
  if (end == text.size()) return {range, 0, true};
  const char16_t c = text[end];
  const bool isPair = c == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
  return {range, isPair ? 2u : 1u, c != u'\v' && c != u'\f' && c != lineSeparator};
}

}  // namespace bkuk
