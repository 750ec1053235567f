#include "platform/foundation/NSRange.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

std::size_t NSMaxRange(NSRange range) {
  std::size_t end = 0;
  if (__builtin_add_overflow(range.location, range.length, &end)) trap();
  return end;
}

}  // namespace bkuk
