#include "platform/foundation/NSAttributedString.h"

#include <optional>

#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/text/TextLayout.h"
#include "platform/appkit/text/TextStack.h"

namespace bkuk {

namespace {

using DrawingOptions = NSStringDrawingOptions;

TextLayoutOptions layoutOptions(NSSize size, DrawingOptions options) {
  return {.size = size,
          .usesFontLeading = contains(options, DrawingOptions::usesFontLeading),
          .wraps = contains(options, DrawingOptions::usesLineFragmentOrigin),
          .direction = interfaceLayoutDirection()};
}

/// Around the glyphs of the lines, with y down from the top of the first.
NSRect inkOf(const TextLayout& layout, const NSAttributedString& text) {
  NSRect ink = NSRect::null;
  for (const auto& line : layout.lines()) {
    for (const auto& piece : line.pieces(text)) {
      const auto glyphs = piece.line->inkBounds();
      if (glyphs.width <= 0 || glyphs.height <= 0) continue;
      ink = ink.united(
          {piece.left + glyphs.x, line.baseline - glyphs.y - glyphs.height, glyphs.width, glyphs.height});
    }
  }
  return ink.isNull() ? NSRect{} : ink;
}

}  // namespace

NSSize NSAttributedString::size() const {
  return boundingRect({}, DrawingOptions::usesLineFragmentOrigin | DrawingOptions::usesFontLeading).size;
}

NSRect NSAttributedString::boundingRect(NSSize with, NSStringDrawingOptions options) const {
  const auto layoutAs = layoutOptions(with, options);
  const bool startsAtTop = contains(options, DrawingOptions::usesLineFragmentOrigin);
  const bool measuresInk = contains(options, DrawingOptions::usesDeviceMetrics);
  if (startsAtTop && !measuresInk) return {NSPoint{}, textLayoutSize(*this, layoutAs)};
  const TextLayout layout(*this, 0, layoutAs);
  if (layout.lines().empty()) return {};
  const NSRect box = measuresInk ? inkOf(layout, *this) : layout.usedRect();
  if (startsAtTop) return box;
  // Seen from the baseline, with y up.
  const CGFloat baseline = layout.lines().front().baseline;
  return {box.minX(), baseline - box.maxY(), box.width(), box.height()};
}

void NSAttributedString::draw(NSRect in) const {
  if (!NSGraphicsContext::current()) return;
  const TextStack stack;
  stack.storage()->setAttributedString(*this);
  stack.container()->setSize(in.size);
  stack.draw(in.origin);
}

}  // namespace bkuk
