#pragma once

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// A wave below the baseline, as below a word that is spelt wrong.
class WavyUnderline : public BKUKUnderlineDrawer {
 public:
  void drawUnderline(const Ref<NSFont>& font, const Ref<NSColor>& color, NSRect rect) override;
};

}  // namespace bkuk::gallery
