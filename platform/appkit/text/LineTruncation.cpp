#include "platform/appkit/text/LineTruncation.h"

#include <algorithm>
#include <string>

#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/appkit/text/LineBreaker.h"

namespace bkuk {

namespace {

constexpr char16_t ellipsis = u'\u2026';
constexpr CGFloat tolerance = 1e-6;

std::shared_ptr<const host::TextParagraph> shape(std::u16string_view text, const TextRuns& runs,
                                                 host::TextDirection direction) {
  return host::current().drawing().fonts().shape(text, runs.runs(), direction);
}

/// Finds how much of a line stays beside an ellipsis.
class Truncation {
 public:
  Truncation(const LongLine& line, NSLineBreakMode mode)
      : line_(line), mode_(mode), advances_(line.whole->advances()) {}

  [[nodiscard]] FittedLine fit(CGFloat width) {
    const NSRange everything{0, line_.text.size()};
    NSRange hidden = hiddenFor(width - shape({&ellipsis, 1}, ellipsisRuns(0), line_.direction)->width());
    for (;;) {
      auto shaped = shapeWithout(hidden);
      const CGFloat excess = shaped->width() - width;
      if (excess <= tolerance || hidden == everything) return {std::move(shaped), hidden, true};
      // Letters beside the ellipsis look different from how they did within their word. Where negative
      // spacing sets letters over each other, less text may even be wider.
      const NSRange more = hiddenFor(widthWithout(hidden) - excess);
      hidden = more.length > hidden.length ? more : everything;
    }
  }

  [[nodiscard]] std::shared_ptr<const host::TextParagraph> shapeWithout(NSRange hidden) const {
    std::u16string text(line_.text.substr(0, hidden.location));
    text += ellipsis;
    text += line_.text.substr(NSMaxRange(hidden));
    TextRuns runs;
    runs.append(line_.runs, 0, hidden.location);
    const TextRuns ofEllipsis = ellipsisRuns(hidden.location);
    runs.append(ofEllipsis, 0, 1);
    runs.append(line_.runs, NSMaxRange(hidden), line_.text.size());
    return shape(text, runs, line_.direction);
  }

 private:
  // It looks like what it first stands for; at the end like what is before it.
  [[nodiscard]] TextRuns ellipsisRuns(std::size_t at) const {
    TextRuns runs;
    const std::size_t unit = std::min(at, line_.text.size() - 1);
    runs.append(line_.runs, unit, unit + 1);
    return runs;
  }

  [[nodiscard]] CGFloat widthOf(std::size_t from, std::size_t to) const {
    CGFloat width = 0;
    for (std::size_t i = from; i < to; ++i) width += advances_[i];
    return width;
  }
  [[nodiscard]] CGFloat widthWithout(NSRange hidden) const {
    return widthOf(0, hidden.location) + widthOf(NSMaxRange(hidden), advances_.size());
  }

  // The most that may stay when it has so much room, from the start and from the end.
  [[nodiscard]] std::size_t headIn(CGFloat room) const {
    std::size_t end = 0;
    for (std::size_t i = 0; i < advances_.size(); ++i) {
      room -= advances_[i];
      if (room < 0) break;
      end = i + 1;
    }
    return startOfCharacter(end);
  }
  [[nodiscard]] std::size_t tailIn(CGFloat room, std::size_t head) const {
    std::size_t start = advances_.size();
    for (std::size_t i = advances_.size(); i > head; --i) {
      room -= advances_[i - 1];
      if (room < 0) break;
      if (startOfCharacter(i - 1) == i - 1) start = i - 1;
    }
    return start;
  }
  [[nodiscard]] std::size_t startOfCharacter(std::size_t at) const {
    while (at > 0 && at < advances_.size() && advances_[at] == 0) --at;
    return at;
  }
  // White space before an ellipsis looks like a mistake.
  [[nodiscard]] std::size_t withoutSpaces(std::size_t head) const {
    while (head > 0 && isLineSpace(line_.text[head - 1])) --head;
    return head;
  }

  [[nodiscard]] NSRange hiddenFor(CGFloat room) const {
    std::size_t head = 0;
    if (mode_ == NSLineBreakMode::truncatingMiddle) head = withoutSpaces(headIn(room / 2));
    if (mode_ != NSLineBreakMode::truncatingHead && mode_ != NSLineBreakMode::truncatingMiddle)
      head = withoutSpaces(headIn(room));
    const bool keepsTail =
        mode_ == NSLineBreakMode::truncatingHead || mode_ == NSLineBreakMode::truncatingMiddle;
    const std::size_t tail = keepsTail ? tailIn(room - widthOf(0, head), head) : advances_.size();
    return {head, tail - head};
  }

  const LongLine& line_;
  NSLineBreakMode mode_;
  std::span<const double> advances_;
};

// With the letters moved together, when they do not have to move too far; null otherwise.
std::shared_ptr<const host::TextParagraph> tightened(const LongLine& line, CGFloat width,
                                                     const NSParagraphStyle& style) {
  const CGFloat excess = line.whole->width() - width;
  const bool isAllowed = style.allowsDefaultTighteningForTruncation() &&
                         excess <= width * static_cast<CGFloat>(style.tighteningFactorForTruncation());
  if (!isAllowed) return nullptr;
  const auto characters = std::ranges::count_if(line.whole->advances(), [](double a) { return a > 0; });
  TextRuns runs = line.runs;
  runs.addKern(-excess / static_cast<CGFloat>(std::max<std::ptrdiff_t>(1, characters)));
  return shape(line.text, runs, line.direction);
}

}  // namespace

FittedLine fitLine(const LongLine& line, CGFloat width, NSLineBreakMode mode, const NSParagraphStyle& style,
                   bool isCutOff) {
  const bool fits = line.whole->width() <= width + tolerance;
  if (line.text.empty() || (fits && !isCutOff)) return {line.whole, {}, false};
  Truncation truncation(line, isCutOff ? NSLineBreakMode::truncatingTail : mode);
  if (isCutOff) {
    const NSRange nothing{line.text.size(), 0};
    auto shaped = truncation.shapeWithout(nothing);
    if (shaped->width() <= width + tolerance) return {std::move(shaped), nothing, true};
  } else if (auto shaped = tightened(line, width, style)) {
    return {std::move(shaped), {}, false};
  }
  return truncation.fit(width);
}

}  // namespace bkuk
