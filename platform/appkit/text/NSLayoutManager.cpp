#include "platform/appkit/text/NSLayoutManager.h"

#include <algorithm>
#include <utility>

#include "platform/appkit/text/TextLayout.h"

namespace bkuk {

namespace {

// Stretches of a line that stand side by side, from the left.
std::vector<NSRect> stretches(const LineFragment& line, const NSAttributedString& text, NSRange range) {
  const auto boxes = line.boxes(text);
  std::vector<NSRect> found;
  for (std::size_t i = range.location; i < NSMaxRange(range); ++i) {
    const auto& box = boxes[i - line.range.location];
    found.emplace_back(box.left, line.usedRect.minY(), box.advance, line.usedRect.height());
  }
  std::ranges::sort(found, {}, [](const NSRect& rect) { return rect.minX(); });
  std::vector<NSRect> joined;
  for (const auto& rect : found) {
    const bool touches = !joined.empty() && rect.minX() - joined.back().maxX() < 1e-6;
    if (touches)
      joined.back().size.width = std::max(joined.back().maxX(), rect.maxX()) - joined.back().minX();
    if (!touches) joined.push_back(rect);
  }
  return joined;
}

}  // namespace

void NSLayoutManager::didInit() {
  TextStorageListener::didInit();
  direction_ = interfaceLayoutDirection();
}

// Chain

void NSLayoutManager::setTextStorage(NSTextStorage* storage) {
  storage_ = storage;
  invalidateLayout();
}

void NSLayoutManager::processEditing(NSTextStorage&, const TextStorageEdit&) { invalidateLayout(); }

void NSLayoutManager::addTextContainer(const Ref<NSTextContainer>& container) {
  if (const auto manager = container->layoutManager()) manager->removeTextContainer(*container);
  container->layoutManager_ = this;
  containers_.push_back(container);
  invalidateLayout();
}

void NSLayoutManager::removeTextContainer(NSTextContainer& container) {
  const auto found = std::ranges::find(containers_, &container, &Ref<NSTextContainer>::get);
  if (found == containers_.end()) return;
  container.layoutManager_ = nullptr;
  containers_.erase(found);
  invalidateLayout();
}

void NSLayoutManager::setUsesFontLeading(bool uses) {
  if (std::exchange(usesFontLeading_, uses) != uses) invalidateLayout();
}

void NSLayoutManager::setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection direction) {
  if (std::exchange(direction_, direction) != direction) invalidateLayout();
}

// Layout

void NSLayoutManager::invalidateLayout() { layouts_.clear(); }

const std::vector<NSLayoutManager::Layout>& NSLayoutManager::layouts() {
  if (!layouts_.empty() || !storage_) return layouts_;
  std::size_t from = 0;
  for (const auto& container : containers_) {
    const TextLayoutOptions options{.size = container->size(),
                                    .lineFragmentPadding = container->lineFragmentPadding(),
                                    .maximumNumberOfLines = container->maximumNumberOfLines(),
                                    .lineBreakMode = container->lineBreakMode(),
                                    .usesFontLeading = usesFontLeading_,
                                    .direction = direction_};
    layouts_.push_back(std::make_shared<const TextLayout>(*storage_, from, options));
    from = NSMaxRange(layouts_.back()->range());
  }
  return layouts_;
}

void NSLayoutManager::ensureLayout(const NSTextContainer&) { (void)layouts(); }

const TextLayout* NSLayoutManager::layoutIn(const NSTextContainer& container) {
  const auto found = std::ranges::find(containers_, &container, &Ref<NSTextContainer>::get);
  const auto index = static_cast<std::size_t>(found - containers_.begin());
  return index < layouts().size() && !layouts_[index]->lines().empty() ? layouts_[index].get() : nullptr;
}

const TextLayout* NSLayoutManager::layoutOf(std::size_t glyph) {
  for (const auto& layout : layouts()) {
    if (NSLocationInRange(glyph, layout->range())) return layout.get();
  }
  return nullptr;
}

const LineFragment* NSLayoutManager::lineOf(std::size_t glyph) {
  const auto* layout = layoutOf(glyph);
  return layout ? &layout->lineOf(glyph) : nullptr;
}

NSRange NSLayoutManager::cut(NSRange range) const {
  const std::size_t start = std::min(range.location, numberOfGlyphs());
  return {start, std::min(range.length, numberOfGlyphs() - start)};
}

NSRange NSLayoutManager::glyphRange(const NSTextContainer& forTextContainer) {
  const auto* layout = layoutIn(forTextContainer);
  return layout ? layout->range() : NSRange{};
}

NSRange NSLayoutManager::truncatedGlyphRange(std::size_t inLineFragmentForGlyphAt) {
  const auto* line = lineOf(inLineFragmentForGlyphAt);
  if (!line || line->content.hidden.length == 0) return {NSNotFound, 0};
  return {line->range.location + line->content.hidden.location, line->content.hidden.length};
}

// Rectangles

NSRect NSLayoutManager::usedRect(const NSTextContainer& forTextContainer) {
  const auto* layout = layoutIn(forTextContainer);
  return layout ? layout->usedRect() : NSRect{};
}

NSRect NSLayoutManager::lineFragmentRect(std::size_t forGlyphAt, NSRange* effectiveRange) {
  const auto* line = lineOf(forGlyphAt);
  if (effectiveRange) *effectiveRange = line ? line->range : NSRange{};
  return line ? line->rect : NSRect{};
}

NSRect NSLayoutManager::lineFragmentUsedRect(std::size_t forGlyphAt, NSRange* effectiveRange) {
  const auto* line = lineOf(forGlyphAt);
  if (effectiveRange) *effectiveRange = line ? line->range : NSRange{};
  return line ? line->usedRect : NSRect{};
}

NSPoint NSLayoutManager::location(std::size_t forGlyphAt) {
  const auto* line = lineOf(forGlyphAt);
  if (!line) return {};
  const auto& box = line->boxes(*storage_)[forGlyphAt - line->range.location];
  return {box.left - line->rect.minX(), line->baseline - line->rect.minY()};
}

std::vector<NSRect> NSLayoutManager::rects(NSRange forGlyphRange, const NSTextContainer& in) {
  std::vector<NSRect> all;
  const auto* layout = layoutIn(in);
  if (!layout) return all;
  const NSRange range = cut(forGlyphRange);
  for (const auto& line : layout->linesOf(range)) {
    const auto found = stretches(line, *storage_, NSIntersectionRange(range, line.range));
    all.insert(all.end(), found.begin(), found.end());
  }
  return all;
}

NSRect NSLayoutManager::boundingRect(NSRange forGlyphRange, const NSTextContainer& in) {
  const auto all = rects(forGlyphRange, in);
  if (all.empty()) return {};
  NSRect bounds = all.front();
  for (const auto& rect : all) bounds = bounds.united(rect);
  return bounds;
}

std::size_t NSLayoutManager::glyphIndex(NSPoint forPoint, const NSTextContainer& in, CGFloat* fraction) {
  if (fraction) *fraction = 0;
  const auto* layout = layoutIn(in);
  if (!layout) return 0;
  const auto& line = layout->lineAt(forPoint.y);
  const auto boxes = line.boxes(*storage_);
  std::size_t nearest = 0;
  CGFloat distance = -1;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const auto& box = boxes[i];
    if (box.advance <= 0) continue;
    const CGFloat right = box.left + box.advance;
    if (forPoint.x >= box.left && forPoint.x < right) {
      if (fraction) *fraction = (forPoint.x - box.left) / box.advance;
      return line.range.location + i;
    }
    const CGFloat away = forPoint.x < box.left ? box.left - forPoint.x : forPoint.x - right;
    if (distance >= 0 && away >= distance) continue;
    distance = away;
    nearest = i;
  }
  const bool isRightOfLine = forPoint.x >= line.content.left + line.content.width;
  if (fraction) *fraction = isRightOfLine ? 1 : 0;
  const bool hitsBreak = line.endsWithBreak && isRightOfLine && !boxes.empty();
  if (hitsBreak) nearest = boxes.size() - 1;
  return std::min(line.range.location + nearest, numberOfGlyphs() - 1);
}

}  // namespace bkuk
