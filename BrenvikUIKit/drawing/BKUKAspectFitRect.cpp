#include "BrenvikUIKit/drawing/BKUKAspectFitRect.h"

namespace bkuk {

CGRect BKUKAspectFitRect::frame(const CGRect& frame, CGFloat aspect) {
  const CGSize whole = frame.size;
  if (!(whole.width > 0) || !(whole.height > 0)) return frame;
  const bool isLimitedByWidth = whole.width / whole.height < aspect;
  const CGSize fitted = isLimitedByWidth ? CGSize{whole.width, whole.width / aspect}
                                         : CGSize{whole.height * aspect, whole.height};
  return {{frame.origin.x + (whole.width - fitted.width) / 2,
           frame.origin.y + (whole.height - fitted.height) / 2},
          fitted};
}

}  // namespace bkuk
