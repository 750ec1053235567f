#include "platform/appkit/text/Typesetter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/appkit/text/LineBreaker.h"
#include "platform/appkit/text/LineTruncation.h"
#include "platform/appkit/text/NSTextContainer.h"

namespace bkuk {

namespace {

constexpr CGFloat tolerance = 1e-6;

bool isLimited(CGFloat extent) { return extent > 0 && extent < NSTextContainer::unlimited; }

CGFloat lineHeight(const LineMetrics& metrics, const NSParagraphStyle& style) {
  CGFloat natural = metrics.ascent + metrics.descent + metrics.leading;
  if (style.lineHeightMultiple() > 0) natural *= style.lineHeightMultiple();
  natural = std::max(natural, style.minimumLineHeight());
  return style.maximumLineHeight() > 0 ? std::min(natural, style.maximumLineHeight()) : natural;
}

CGFloat shareOf(NSTextAlignment alignment, bool isInterfaceRightToLeft, bool isTextRightToLeft) {
  switch (alignment) {
    case NSTextAlignment::left:
      return 0;
    case NSTextAlignment::center:
      return 0.5;
    case NSTextAlignment::right:
      return 1;
    case NSTextAlignment::justified:
      return isTextRightToLeft ? 1 : 0;
    case NSTextAlignment::natural:
      break;
  }
  return isInterfaceRightToLeft ? 1 : 0;
}

LineContent contentOf(FittedLine fitted) {
  const std::size_t length = fitted.paragraph->length();
  const CGFloat width = fitted.paragraph->width();
  return {std::move(fitted.paragraph), 0, length, fitted.hidden, fitted.hasEllipsis, 0, width};
}

}  // namespace

Typesetter::Typesetter(const NSAttributedString& text, const TextLayoutOptions& options)
    : text_(text),
      options_(options),
      isWidthLimited_(isLimited(options.size.width)),
      isHeightLimited_(isLimited(options.size.height)) {}

std::vector<LineFragment> Typesetter::lines(std::size_t from) {
  const std::size_t length = text_.length();
  bool hasRoom = from < length;
  bool endsWithBreak = false;
  // A container may begin in the middle of a paragraph.
  bool goesOn = from > 0 && textSegmentAt(text_.string().units(), from - 1).range.length > 0;
  for (std::size_t at = from; hasRoom && at < length;) {
    Paragraph paragraph = paragraphAt(at);
    if (std::exchange(goesOn, false)) paragraph.isFirstLine = false;
    hasRoom = setLines(paragraph);
    endsWithBreak = paragraph.segment.breakLength > 0;
    at = paragraph.segment.end();
  }
  // A break at the very end begins a line that is empty.
  if (hasRoom && endsWithBreak) {
    Paragraph empty{{{length, 0}, 0, true},
                    paragraphStyleOf(attributesAt(length - 1)),
                    before_.value_or(host::TextDirection::leftToRight)};
    setEmptyLine(empty);
  }
  if (!lines_.empty()) lines_.back().rect.size.height = lines_.back().usedRect.height();
  if (!isWidthLimited_) alignAmongThemselves();
  return std::move(lines_);
}

std::optional<NSSize> Typesetter::sizeOfPlainLine() {
  if (text_.length() == 0) return std::nullopt;
  NSRange attributeRun;
  const auto& attributes = text_.attributes(0, &attributeRun);
  const auto segment = textSegmentAt(text_.string().units(), 0);
  if (attributeRun.length != text_.length() || segment.range != attributeRun) return std::nullopt;
  const auto run = TextRun::of(attributes);
  const auto style = paragraphStyleOf(attributes);
  const host::TextRun hostRun = run.hostRun(attributeRun.length);
  const auto shaped = host::current().drawing().fonts().shape(text_.string().units(), {&hostRun, 1},
                                                              directionOf(segment, *style));
  const CGFloat indents = style->firstLineHeadIndent() + std::abs(style->tailIndent());
  const CGFloat width = shaped->width() + 2 * options_.lineFragmentPadding;
  if (isWidthLimited_ && width + indents > options_.size.width) return std::nullopt;
  LineMetrics metrics;
  metrics.include(attributes);
  if (!options_.usesFontLeading) metrics.leading = 0;
  return NSSize{width, lineHeight(metrics, *style)};
}

// Paragraphs

const NSAttributeDictionary& Typesetter::attributesAt(std::size_t index) const {
  return text_.attributes(std::min(index, text_.length() - 1));
}

host::TextDirection Typesetter::directionOf(const TextSegment& segment, const NSParagraphStyle& style) {
  if (style.baseWritingDirection() == NSWritingDirection::leftToRight)
    return host::TextDirection::leftToRight;
  if (style.baseWritingDirection() == NSWritingDirection::rightToLeft)
    return host::TextDirection::rightToLeft;
  if (before_) return *before_;
  if (const auto strong = host::current().drawing().fonts().strongDirection(unitsOf(segment.range)))
    return *strong;
  return options_.direction == NSUserInterfaceLayoutDirection::rightToLeft ? host::TextDirection::rightToLeft
                                                                           : host::TextDirection::leftToRight;
}

Typesetter::Paragraph Typesetter::paragraphAt(std::size_t from) {
  const auto segment = textSegmentAt(text_.string().units(), from);
  const auto style = paragraphStyleOf(attributesAt(from));
  const bool isFirstLine = !before_;
  const auto direction = directionOf(segment, *style);
  before_ = segment.endsParagraph ? std::nullopt : std::optional(direction);
  Paragraph paragraph{segment, style, direction, {text_, segment.range}, nullptr, isFirstLine};
  if (segment.range.length > 0) {
    paragraph.shaped =
        host::current().drawing().fonts().shape(unitsOf(segment.range), paragraph.runs.runs(), direction);
  }
  if (isFirstLine && !lines_.empty()) y_ += style->paragraphSpacingBefore();
  return paragraph;
}

CGFloat Typesetter::indent(const Paragraph& paragraph) const {
  return paragraph.isFirstLine ? paragraph.style->firstLineHeadIndent() : paragraph.style->headIndent();
}

// The width that a line may fill, beside its indents.
CGFloat Typesetter::room(const Paragraph& paragraph) const {
  if (!isWidthLimited_) return NSTextContainer::unlimited;
  const CGFloat full = options_.size.width - 2 * options_.lineFragmentPadding;
  const CGFloat tail = paragraph.style->tailIndent();
  const CGFloat end = tail > 0 ? std::min(tail, full) : full + tail;
  return std::max(0.0, end - indent(paragraph));
}

// Lines

bool Typesetter::setLines(Paragraph& paragraph) {
  if (!paragraph.shaped) return setEmptyLine(paragraph);
  const auto mode = paragraph.style->lineBreakMode();
  const bool isOneLine = !options_.wraps || mode == NSLineBreakMode::clipping || isTruncating(mode);
  return isOneLine ? setOnOneLine(paragraph) : setWrapped(paragraph);
}

bool Typesetter::setEmptyLine(const Paragraph& paragraph) {
  return place(paragraph, {paragraph.segment.range.location, paragraph.segment.breakLength}, {});
}

bool Typesetter::setOnOneLine(Paragraph& paragraph) {
  const auto& segment = paragraph.segment;
  const auto mode = paragraph.style->lineBreakMode();
  if (options_.wraps && cutsOff(segment.end())) return setCutOff(paragraph, 0);
  FittedLine fitted{paragraph.shaped, {}, false};
  if (isWidthLimited_ && options_.wraps && isTruncating(mode)) {
    fitted = fitLine({unitsOf(segment.range), paragraph.runs, paragraph.direction, paragraph.shaped},
                     room(paragraph), mode, *paragraph.style);
  }
  return place(paragraph, {segment.range.location, segment.end() - segment.range.location},
               contentOf(std::move(fitted)));
}

bool Typesetter::setWrapped(Paragraph& paragraph) {
  const auto& segment = paragraph.segment;
  const std::size_t length = segment.range.length;
  const bool fits = !isWidthLimited_ || paragraph.shaped->width() <= room(paragraph) + tolerance;
  if (fits) return setOnOneLine(paragraph);
  const LineBreaker breaker(*paragraph.shaped, unitsOf(segment.range), paragraph.style->lineBreakMode());
  for (std::size_t from = 0; from < length;) {
    const auto end = breaker.next(from, room(paragraph));
    const std::size_t next = end.end == length ? segment.end() - segment.range.location : end.end;
    if (cutsOff(segment.range.location + next)) return setCutOff(paragraph, from);
    const NSRange range{segment.range.location + from, next - from};
    if (!place(paragraph, range, {paragraph.shaped, from, end.visible, {}, false, 0, end.width}))
      return false;
    paragraph.isFirstLine = false;
    from = end.end;
  }
  return true;
}

// Sets what is left from the index `from` on as the last line, which ends in an ellipsis.
bool Typesetter::setCutOff(const Paragraph& paragraph, std::size_t from) {
  const auto& segment = paragraph.segment;
  const std::size_t start = segment.range.location + from;
  const auto units = unitsOf({start, segment.range.length - from});
  TextRuns runs;
  runs.append(paragraph.runs, from, segment.range.length);
  const auto shaped = host::current().drawing().fonts().shape(units, runs.runs(), paragraph.direction);
  auto fitted = fitLine({units, runs, paragraph.direction, shaped}, room(paragraph),
                        NSLineBreakMode::truncatingTail, *paragraph.style, true);
  return place(paragraph, {start, segment.end() - start}, contentOf(std::move(fitted)));
}

bool Typesetter::isLastLine() const {
  return options_.maximumNumberOfLines > 0 && lines_.size() + 1 == options_.maximumNumberOfLines;
}

// Whether the line that ends at `end` is the last that may be shown of more, and has to say so.
bool Typesetter::cutsOff(std::size_t end) const {
  return isLastLine() && isTruncating(options_.lineBreakMode) && end < text_.length();
}

// Puts a line below those that are there; false when there is no room for it, or for one more.
bool Typesetter::place(const Paragraph& paragraph, NSRange range, LineContent content) {
  LineMetrics metrics;
  if (range.length > 0) metrics = LineMetrics::of(text_, range);
  if (range.length == 0) metrics.include(attributesAt(range.location));
  if (!options_.usesFontLeading) metrics.leading = 0;
  const auto& style = *paragraph.style;
  const CGFloat height = lineHeight(metrics, style);
  const CGFloat top = y_ + spaceBelow_;
  const bool isFull = isHeightLimited_ && top + height > options_.size.height + tolerance;
  if (isFull && !lines_.empty()) return false;

  if (!lines_.empty()) lines_.back().rect.size.height += spaceBelow_;
  LineFragment line;
  line.range = range;
  line.baseline = top + height - metrics.leading - metrics.descent;
  line.isRightToLeft = paragraph.direction == host::TextDirection::rightToLeft;
  line.endsWithBreak = paragraph.segment.breakLength > 0 && NSMaxRange(range) == paragraph.segment.end();
  line.content = std::move(content);
  line.rect = {0, top, isWidthLimited_ ? options_.size.width : 0, height};
  line.usedRect = {0, top, 0, height};
  align(line, paragraph);
  y_ = top + height;
  const bool endsParagraph = NSMaxRange(range) == paragraph.segment.end() && paragraph.segment.endsParagraph;
  spaceBelow_ = style.lineSpacing() + (endsParagraph ? style.paragraphSpacing() : 0);
  lines_.push_back(std::move(line));
  return !isFull && (options_.maximumNumberOfLines == 0 || lines_.size() < options_.maximumNumberOfLines);
}

// Alignment

void Typesetter::align(LineFragment& line, const Paragraph& paragraph) {
  const bool isInterfaceRightToLeft = options_.direction == NSUserInterfaceLayoutDirection::rightToLeft;
  const CGFloat padding = options_.lineFragmentPadding;
  const auto alignment = paragraph.style->alignment();
  const CGFloat full = room(paragraph);
  const bool goesOn = NSMaxRange(line.range) < paragraph.segment.end();
  const bool isJustified = alignment == NSTextAlignment::justified && goesOn && isWidthLimited_;
  if (isJustified && full > line.content.width) justify(line, full - line.content.width);
  // Indents are on the side where the paragraph's lines begin.
  CGFloat left = padding + indent(paragraph);
  if (line.isRightToLeft && isWidthLimited_) left = options_.size.width - left - full;
  // Of a line that is too long the beginning is seen, whatever its alignment.
  const bool overflows = isWidthLimited_ && line.content.width > full;
  const auto placed = overflows ? NSTextAlignment::justified : alignment;
  const CGFloat share = shareOf(placed, isInterfaceRightToLeft, line.isRightToLeft);
  if (isWidthLimited_) left += (full - line.content.width) * share;
  line.content.left = left;
  line.usedRect.origin.x = left - padding;
  line.usedRect.size.width = line.content.width + 2 * padding;
  shares_.push_back(share);
}

// Lets the spaces of a line take up the rest of its width.
void Typesetter::justify(LineFragment& line, CGFloat rest) const {
  const auto units = text_.string().units();
  std::size_t spaces = 0;
  for (std::size_t i = 0; i < line.content.to - line.content.from; ++i) {
    if (isLineSpace(units[line.range.location + i])) ++spaces;
  }
  if (spaces == 0) return;
  line.content.gap = rest / static_cast<CGFloat>(spaces);
  line.content.width += rest;
}

// Without a width to go by, lines take the widest one's.
void Typesetter::alignAmongThemselves() {
  CGFloat widest = 0;
  for (const auto& line : lines_) widest = std::max(widest, line.content.width);
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const CGFloat shift = (widest - lines_[i].content.width) * shares_[i];
    lines_[i].content.left += shift;
    lines_[i].usedRect.origin.x += shift;
  }
}

}  // namespace bkuk
