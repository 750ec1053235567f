#include "BrenvikUIKit/text/FontKey.h"

#include <bit>
#include <cstdint>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::uint64_t low63 = ~std::uint64_t{0} >> 1;

// Gives every number below 2^63 an odd one of its own: each step can be undone within 63 bits.
std::uint64_t mixed(std::uint64_t x) {
  x = (x + 0x1E3779B97F4A7C15) & low63;
  x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9 & low63;
  x = (x ^ x >> 27) * 0x94D049BB133111EB & low63;
  return (x ^ x >> 31) << 1 | 1;
}

// Sizes of use have a sign of 0 and so differ in the other 63 bits.
std::uint64_t bitsOf(double size) {
  const auto bits = std::bit_cast<std::uint64_t>(size == 0 ? 0.0 : size);
  return (bits & low63) ^ (bits > low63 ? 0x2AAAAAAAAAAAAAAA : 0);
}

}  // namespace

Ref<FontKey> FontKey::init() {
  fatal("Use of unimplemented initializer 'init()' for class 'BrenvikUIKit.FontKey'", "BrenvikUIKit/FontKey");
}

std::size_t FontKey::hash() const { return mixed(static_cast<std::uint64_t>(type_)) * mixed(bitsOf(size_)); }

bool FontKey::isEqual(const NSObject* other) const {
  const auto* key = dynamic_cast<const FontKey*>(other);
  return key && key->hash() == hash();
}

}  // namespace bkuk
