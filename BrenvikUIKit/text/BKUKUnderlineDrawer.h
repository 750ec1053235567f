#pragma once

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/text/NSFont.h"

namespace bkuk {

/// Draws the lines below text in a way of its own.
class BKUKUnderlineDrawer : public NSObject {
 public:
  /// Called while a label is drawn, for each attribute run of a line. `rect` is the box around its
  /// glyphs, over the full height of the line, in the space that is drawn into; y runs down. Font and colour
  /// are empty where the text has none.
  virtual void drawUnderline(const Ref<NSFont>& font, const Ref<NSColor>& color, NSRect rect) = 0;
};

}  // namespace bkuk
