#include "platform/foundation/NSRange.h"

#include <algorithm>

#include "platform/foundation/Fatal.h"

namespace bkuk {

std::size_t NSMaxRange(NSRange range) {
  std::size_t end = 0;
  if (__builtin_add_overflow(range.location, range.length, &end))
    trap("NSMaxRange: a range that ends beyond what can be counted, such as one at NSNotFound");
  return end;
}

NSRange NSIntersectionRange(NSRange a, NSRange b) {
  const std::size_t start = std::max(a.location, b.location);
  const std::size_t end = std::min(NSMaxRange(a), NSMaxRange(b));
  return {start, end > start ? end - start : 0};
}

}  // namespace bkuk
