#include "BrenvikUIKit/text/BKUKLabelLayoutManager.h"

#include "platform/appkit/drawing/NSGraphicsContext.h"

namespace bkuk {

void BKUKLabelLayoutManager::drawUnderline(NSRange forGlyphRange, NSUnderlineStyle underlineType,
                                           CGFloat baselineOffset, NSRect lineFragmentRect,
                                           NSRange lineFragmentGlyphRange, NSPoint containerOrigin) {
  const auto& drawers = manager_ ? *manager_ : BKUKUnderlineDrawerManager::shared();
  const auto drawer = drawers.drawer(underlineType);
  if (!drawer) {
    return NSLayoutManager::drawUnderline(forGlyphRange, underlineType, baselineOffset, lineFragmentRect,
                                          lineFragmentGlyphRange, containerOrigin);
  }
  const auto context = NSGraphicsContext::current();
  const bool isThere =
      textStorage() && NSMaxRange(forGlyphRange) <= numberOfGlyphs() && forGlyphRange.length > 0;
  if (!context || !isThere || textContainers().empty()) return;
  const NSRect rect = boundingRect(forGlyphRange, *textContainers().front());
  const auto& attributes = textStorage()->attributes(forGlyphRange.location);
  const Ref<NSFont> font = attributes.object<NSFont>(NSFontAttributeName);
  const Ref<NSColor> color = attributes.object<NSColor>(NSUnderlineColorAttributeName);
  // The rectangle is in the container's space; it is drawn where the container is.
  context->cgContext()->saveGState();
  context->cgContext()->translateBy(containerOrigin.x, containerOrigin.y);
  drawer->drawUnderline(font, color, rect);
  context->cgContext()->restoreGState();
}

}  // namespace bkuk
