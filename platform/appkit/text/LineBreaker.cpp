#include "platform/appkit/text/LineBreaker.h"

namespace bkuk {

namespace {

// Widths are sums in another order than the limit's: a line that was measured to fit has to fit.
constexpr CGFloat tolerance = 1e-6;

}  // namespace

LineEnd LineBreaker::next(std::size_t from, CGFloat width) const {
  CGFloat pen = 0;
  for (std::size_t i = from; i < advances_.size(); ++i) {
    pen += advances_[i];
    const bool overflows = pen > width + tolerance && advances_[i] > 0 && !isLineSpace(text_[i]);
    if (overflows) return cut(from, breakBefore(from, i));
  }
  LineEnd line{advances_.size(), advances_.size(), pen};
  // White space that ends the paragraph counts as far as there is room for it.
  if (pen > width + tolerance) line = cut(from, line.end);
  return line;
}

std::size_t LineBreaker::breakBefore(std::size_t from, std::size_t tooFar) const {
  const auto breaks = paragraph_.lineBreaks();
  for (std::size_t i = tooFar; i > from && mode_ != NSLineBreakMode::charWrapping; --i) {
    if (breaks[i] != host::LineBreak::none) return i;
  }
  if (tooFar > from) return tooFar;
  // Not even one character fits.
  std::size_t end = from + 1;
  while (end < advances_.size() && advances_[end] == 0) ++end;
  return end;
}

LineEnd LineBreaker::cut(std::size_t from, std::size_t end) const {
  LineEnd line{end, end, 0};
  while (line.visible > from && isLineSpace(text_[line.visible - 1])) --line.visible;
  for (std::size_t i = from; i < line.visible; ++i) line.width += advances_[i];
  return line;
}

}  // namespace bkuk
