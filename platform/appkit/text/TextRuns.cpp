#include "platform/appkit/text/TextRuns.h"

#include <algorithm>
#include <utility>

namespace bkuk {

namespace {

constexpr CGFloat usualSize = 12;

CGFloat numberOf(const NSAttributeValue* value) { return value ? value->number().value_or(0) : 0; }

}  // namespace

Ref<NSFont> fontOf(const NSAttributeDictionary& attributes) {
  if (auto* font = attributes.object<NSFont>(NSFontAttributeName)) return font;
  return NSFont::systemFont(usualSize);
}

Ref<NSParagraphStyle> paragraphStyleOf(const NSAttributeDictionary& attributes) {
  if (auto* style = attributes.object<NSParagraphStyle>(NSParagraphStyleAttributeName)) return style;
  return NSParagraphStyle::default_();
}

CGFloat baselineOffsetOf(const NSAttributeDictionary& attributes) {
  return numberOf(attributes.find(NSBaselineOffsetAttributeName));
}

void LineMetrics::include(const NSAttributeDictionary& attributes) {
  const auto font = fontOf(attributes);
  const CGFloat rise = baselineOffsetOf(attributes);
  ascent = std::max(ascent, font->ascender() + rise);
  descent = std::max(descent, -font->descender() - rise);
  leading = std::max(leading, font->leading());
}

LineMetrics LineMetrics::of(const NSAttributedString& text, NSRange range) {
  LineMetrics metrics;
  for (std::size_t at = range.location; at < NSMaxRange(range);) {
    NSRange run;
    metrics.include(text.attributes(at, &run));
    at = NSMaxRange(run);
  }
  return metrics;
}

TextRun TextRun::of(const NSAttributeDictionary& attributes) {
  const auto* kern = attributes.find(NSKernAttributeName);
  const CGFloat space = numberOf(kern);
  return {fontOf(attributes), space, !kern || space != 0};
}

TextRuns::TextRuns(const NSAttributedString& text, NSRange range) {
  for (std::size_t at = range.location; at < NSMaxRange(range);) {
    NSRange run;
    const auto& attributes = text.attributes(at, &run);
    const std::size_t end = std::min(NSMaxRange(run), NSMaxRange(range));
    auto styled = TextRun::of(attributes);
    runs_.push_back(styled.hostRun(end - at));
    fonts_.push_back(std::move(styled.font));
    at = end;
  }
}

void TextRuns::append(const TextRuns& other, std::size_t from, std::size_t to) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < other.runs_.size() && start < to; ++i) {
    const std::size_t end = start + other.runs_[i].length;
    const std::size_t first = std::max(start, from);
    const std::size_t last = std::min(end, to);
    start = end;
    if (first >= last) continue;
    runs_.push_back(other.runs_[i]);
    runs_.back().length = last - first;
    fonts_.push_back(other.fonts_[i]);
  }
}

void TextRuns::addKern(CGFloat kern) {
  for (auto& run : runs_) run.kern += kern;
}

}  // namespace bkuk
