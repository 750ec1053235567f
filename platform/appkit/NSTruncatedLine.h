#pragma once

#include "platform/appkit/NSTextAlignment.h"
#include "platform/coretext/CTLine.h"

namespace bkuk {

/// The longest line that fits into `width` points with an ellipsis in place of what `mode` lets go: the
/// beginning, the middle or the end. The other modes, and text that fits, give the whole line; where nothing
/// fits, the ellipsis alone.
[[nodiscard]] Ref<CTLine> NSTruncatedLine(const NSString& text, const Ref<CTFont>& font, CGFloat width,
                                          NSLineBreakMode mode);

}  // namespace bkuk
