#pragma once

#include "BrenvikUIKit/text/BKUKUnderlineDrawerManager.h"
#include "platform/appkit/text/NSLayoutManager.h"

namespace bkuk {

/// Sets the text of a label, and leaves its underlines to those who are registered for their style.
class BKUKLabelLayoutManager final : public NSLayoutManager {
 public:
  /// Absent, as at first, for the shared one.
  [[nodiscard]] const Ref<BKUKUnderlineDrawerManager>& underlineDrawerManager() const { return manager_; }
  void setUnderlineDrawerManager(Ref<BKUKUnderlineDrawerManager> manager) { manager_ = std::move(manager); }

  void drawUnderline(NSRange forGlyphRange, NSUnderlineStyle underlineType, CGFloat baselineOffset,
                     NSRect lineFragmentRect, NSRange lineFragmentGlyphRange,
                     NSPoint containerOrigin) override;

 private:
  Ref<BKUKUnderlineDrawerManager> manager_;
};

}  // namespace bkuk
