#include "platform/appkit/text/NSLayoutManager.h"

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/text/LineBreaker.h"
#include "platform/appkit/text/TextLayout.h"
#include "platform/appkit/text/TextRuns.h"
#include "platform/appkit/text/UnderlineDrawing.h"

namespace bkuk {

namespace {

Ref<NSColor> colorOf(const NSAttributeDictionary& attributes, const NSAttributedStringKey& key) {
  return attributes.object<NSColor>(key);
}

Ref<NSColor> textColorOf(const NSAttributeDictionary& attributes) {
  const auto color = colorOf(attributes, NSForegroundColorAttributeName);
  return color ? color : NSColor::black();
}

NSUnderlineStyle underlineOf(const NSAttributeDictionary& attributes) {
  const auto* value = attributes.find(NSUnderlineStyleAttributeName);
  return value ? static_cast<NSUnderlineStyle>(value->integer().value_or(0)) : NSUnderlineStyle::none;
}

// The words of a range, or its spaces too where the style has a line below them.
std::vector<NSRange> underlined(std::u16string_view text, NSRange range, NSUnderlineStyle style) {
  if (!underlineIsByWord(style)) return {range};
  std::vector<NSRange> words;
  for (std::size_t i = range.location; i < NSMaxRange(range); ++i) {
    if (isLineSpace(text[i])) continue;
    const bool goesOn = !words.empty() && NSMaxRange(words.back()) == i;
    if (!goesOn) words.push_back({i, 0});
    ++words.back().length;
  }
  return words;
}

}  // namespace

void NSLayoutManager::drawBackground(NSRange forGlyphRange, NSPoint at) {
  const auto context = NSGraphicsContext::current();
  if (!context || !storage_) return;
  const NSRange range = cut(forGlyphRange);
  for (const auto& container : containers_) {
    const auto* layout = layoutIn(*container);
    if (!layout) continue;
    for (const auto& line : layout->linesOf(range)) {
      for (const auto& piece : line.pieces(*storage_)) {
        const auto color = colorOf(piece.attributes, NSBackgroundColorAttributeName);
        if (!color) continue;
        context->cgContext()->setFillColor(color->cgColor());
        // As high as the text that it is behind, however high others make the line.
        const auto font = fontOf(piece.attributes);
        const CGFloat top = at.y + line.baseline - baselineOffsetOf(piece.attributes) - font->ascender();
        for (const auto& rect : rects(NSIntersectionRange(piece.range, range), *container)) {
          context->cgContext()->fill(
              {at.x + rect.minX(), top, rect.width(), font->ascender() - font->descender()});
        }
      }
    }
  }
}

void NSLayoutManager::drawGlyphs(NSRange forGlyphRange, NSPoint at) {
  if (!NSGraphicsContext::current() || !storage_) return;
  // Whoever draws underlines may edit the text: what is being drawn stays as it is.
  const Ref<NSLayoutManager> self(this);
  const auto snapshot = layouts();
  const NSRange range = cut(forGlyphRange);
  for (const auto& layout : snapshot) {
    for (const auto& line : layout->linesOf(range)) (void)line.pieces(*storage_);
  }
  for (const auto& layout : snapshot) {
    for (const auto& line : layout->linesOf(range)) drawLine(line, range, at);
  }
}

void NSLayoutManager::drawLine(const LineFragment& line, NSRange range, NSPoint origin) {
  if (!storage_) return;
  const auto context = NSGraphicsContext::current()->cgContext();
  for (const auto& piece : line.pieces(*storage_)) {
    const NSRange part = NSIntersectionRange(piece.range, range);
    const bool isWhole = part == piece.range;
    if (!isWhole && part.length == 0) continue;
    const auto font = fontOf(piece.attributes);
    // Glyphs reach beyond their advances and, with marks or from other faces, beyond the metrics.
    const CGFloat spill = font->pointSize();
    const CGRect ink(-spill, font->descender() - spill, piece.line->width() + 2 * spill,
                     font->ascender() - font->descender() + 2 * spill);
    const NSPoint baseline{origin.x + piece.left,
                           origin.y + line.baseline - baselineOffsetOf(piece.attributes)};
    const auto color = textColorOf(piece.attributes)->cgColor();
    context->drawText(isWhole ? piece.line : line.part(part), ink, baseline, *color);
    drawUnderlines(line, piece, part, origin);
  }
}

void NSLayoutManager::drawUnderlines(const LineFragment& line, const TextPiece& piece, NSRange range,
                                     NSPoint origin) {
  const auto style = underlineOf(piece.attributes);
  if (style == NSUnderlineStyle::none) return;
  const Ref<NSTextStorage> storage(storage_);
  if (!storage || NSMaxRange(range) > storage->length()) return;
  for (const auto& word : underlined(storage->string().units(), range, style)) {
    drawUnderline(word, style, line.usedRect.maxY() - line.baseline, line.rect, line.range, origin);
  }
}

void NSLayoutManager::drawUnderline(NSRange forGlyphRange, NSUnderlineStyle underlineType,
                                    CGFloat baselineOffset, NSRect, NSRange, NSPoint containerOrigin) {
  const auto context = NSGraphicsContext::current();
  const NSRange range = cut(forGlyphRange);
  if (!context || range.length == 0) return;
  const auto& attributes = storage_->attributes(range.location);
  const auto color = colorOf(attributes, NSUnderlineColorAttributeName);
  const auto font = fontOf(attributes);
  const auto resolved = (color ? color : textColorOf(attributes))->cgColor();
  const CGFloat rise = baselineOffsetOf(attributes);
  for (const auto& container : containers_) {
    for (const auto& rect : rects(range, *container)) {
      drawUnderlineStrokes(*context->cgContext(), underlineType, *font, containerOrigin.x + rect.minX(),
                           containerOrigin.x + rect.maxX(),
                           containerOrigin.y + rect.maxY() - baselineOffset - rise, resolved);
    }
  }
}

}  // namespace bkuk
