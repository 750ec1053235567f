#include "tests/soak/Usage.h"

#include <algorithm>
#include <filesystem>
#include <malloc.h>

#include "platform/foundation/CountedText.h"
#include "platform/foundation/NSObject.h"

// There under the sanitizers, whose allocator is not the library's.
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();

namespace bkuk::soak {

namespace {

std::size_t allocatedBytes() {
  if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

std::size_t openDescriptors() {
  const auto entries = std::filesystem::directory_iterator("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

}  // namespace

Usage Usage::now() {
  return {allocatedBytes(), NSObject::liveCount(), openDescriptors(), CountedText::livingCount()};
}

Usage Usage::atMost(const Usage& other) const {
  return {std::min(bytes, other.bytes), std::min(objects, other.objects),
          std::min(descriptors, other.descriptors), std::min(names, other.names)};
}

}  // namespace bkuk::soak
