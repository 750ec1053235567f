#include "platform/appkit/NSTextRuns.h"

#include <algorithm>
#include <utility>

namespace bkuk {

namespace {

constexpr CGFloat usualSize = 12;

CGFloat numberOf(const NSAttributeValue* value) { return value ? value->number().value_or(0) : 0; }

}  // namespace

Ref<NSFont> NSFontOf(const NSAttributeDictionary& attributes) {
  if (auto* font = attributes.object<NSFont>(NSFontAttributeName)) return font;
  return NSFont::systemFont(usualSize);
}

Ref<NSParagraphStyle> NSParagraphStyleOf(const NSAttributeDictionary& attributes) {
  if (auto* style = attributes.object<NSParagraphStyle>(NSParagraphStyleAttributeName)) return style;
  return NSParagraphStyle::default_();
}

CGFloat NSBaselineOffsetOf(const NSAttributeDictionary& attributes) {
  return numberOf(attributes.find(NSBaselineOffsetAttributeName));
}

void NSLineMetrics::include(const NSAttributeDictionary& attributes) {
  const auto font = NSFontOf(attributes);
  const CGFloat rise = NSBaselineOffsetOf(attributes);
  ascent = std::max(ascent, font->ascender() + rise);
  descent = std::max(descent, -font->descender() - rise);
  leading = std::max(leading, font->leading());
}

NSLineMetrics NSLineMetrics::of(const NSAttributedString& text, NSRange range) {
  NSLineMetrics metrics;
  for (std::size_t at = range.location; at < NSMaxRange(range);) {
    NSRange run;
    metrics.include(text.attributes(at, &run));
    at = NSMaxRange(run);
  }
  return metrics;
}

NSTextRun NSTextRun::of(const NSAttributeDictionary& attributes) {
  const auto* kern = attributes.find(NSKernAttributeName);
  const CGFloat space = numberOf(kern);
  return {NSFontOf(attributes), space, !kern || space != 0};
}

NSTextRuns::NSTextRuns(const NSAttributedString& text, NSRange range) {
  for (std::size_t at = range.location; at < NSMaxRange(range);) {
    NSRange run;
    const auto& attributes = text.attributes(at, &run);
    const std::size_t end = std::min(NSMaxRange(run), NSMaxRange(range));
    auto styled = NSTextRun::of(attributes);
    runs_.push_back(styled.hostRun(end - at));
    fonts_.push_back(std::move(styled.font));
    at = end;
  }
}

void NSTextRuns::append(const NSTextRuns& other, std::size_t from, std::size_t to) {
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

void NSTextRuns::addKern(CGFloat kern) {
  for (auto& run : runs_) run.kern += kern;
}

}  // namespace bkuk
