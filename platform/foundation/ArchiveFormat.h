#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace bkuk {

/// The bytes of a keyed archive, least significant byte first throughout:
///
///     archive  "BKUA", version (1 byte), number of objects (4), the objects, the root first
///     object   class name (text), number of fields (4), the fields
///     field    key (text), kind (1 byte), value
///     text     number of bytes (4), the bytes
///
/// An object is referred to by its number, counted from 1; 0 stands for none.
namespace archive {

inline constexpr std::string_view magic = "BKUA";
inline constexpr std::uint8_t version = 1;

enum class Kind : std::uint8_t {
  object = 1,   ///< 4 bytes
  array = 2,    ///< the number of elements (4), then 4 bytes for each
  boolean = 3,  ///< 1 byte, 0 or 1
  integer = 4,  ///< 8 bytes
  real = 5,     ///< 8 bytes, an IEEE double
  string = 6,   ///< as text
  data = 7,     ///< as text
};

/// A field as it stands in the archive; both views look into its bytes. The value of a string, of data or of
/// an array has lost its leading number.
struct Field {
  std::string_view key;
  Kind kind = Kind::object;
  std::string_view value;
};

struct Object {
  std::string_view className;
  std::vector<Field> fields;
};

/// Takes the archive apart without interpreting values. Absent when the bytes are not exactly one archive of
/// the present version. Never needs more memory than a small multiple of the bytes.
[[nodiscard]] std::optional<std::vector<Object>> parse(std::span<const std::byte> data);

/// The number that the first bytes of `value` make, which must be long enough.
[[nodiscard]] std::uint64_t number(std::string_view value, std::size_t bytes);

void appendNumber(std::vector<std::byte>& data, std::uint64_t value, std::size_t bytes);
void appendText(std::vector<std::byte>& data, std::string_view text);

}  // namespace archive

}  // namespace bkuk
