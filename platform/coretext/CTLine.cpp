#include "platform/coretext/CTLine.h"

#include "platform/coregraphics/CGContext.h"

namespace bkuk {

namespace {

host::TextDirection toHost(CTWritingDirection direction) {
  return direction == CTWritingDirection::rightToLeft ? host::TextDirection::rightToLeft
                                                      : host::TextDirection::leftToRight;
}

}  // namespace

CTLine::CTLine(const NSString& text, const Ref<CTFont>& font, CTWritingDirection direction)
    : font_(font), line_(font->hostFont().shape(text.units(), toHost(direction))) {}

void CTLine::draw(CGContext& context, CGPoint baseline, const CGColor& color) const {
  // Glyphs reach beyond their advances and, with marks or from other faces, beyond the metrics.
  const CGFloat spill = font_->size();
  const CGRect ink(-spill, -descent() - spill, width() + 2 * spill, ascent() + descent() + 2 * spill);
  context.drawText(line_, ink, baseline, color);
}

}  // namespace bkuk
