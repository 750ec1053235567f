#include "platform/foundation/ArchiveFormat.h"

#include <limits>
#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk::archive {

namespace {

/// Reads from the front. Once anything was missing everything is.
class Reader {
 public:
  explicit Reader(std::string_view rest) : rest_(rest) {}

  [[nodiscard]] bool hasFailed() const { return hasFailed_; }
  [[nodiscard]] bool isAtEnd() const { return rest_.empty() && !hasFailed_; }

  std::string_view bytes(std::size_t count) {
    if (hasFailed_ || count > rest_.size()) {
      hasFailed_ = true;
      return {};
    }
    const auto taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

  std::uint64_t number(std::size_t size) {
    const auto taken = bytes(size);
    return hasFailed_ ? 0 : archive::number(taken, size);
  }

  std::string_view text() { return bytes(number(4)); }

 private:
  std::string_view rest_;
  bool hasFailed_ = false;
};

/// Absent when there is no such kind.
std::optional<std::string_view> readValue(Reader& reader, Kind kind) {
  switch (kind) {
    case Kind::object:
      return reader.bytes(4);
    case Kind::array:
      return reader.bytes(reader.number(4) * 4);
    case Kind::boolean:
      return reader.bytes(1);
    case Kind::integer:
    case Kind::real:
      return reader.bytes(8);
    case Kind::string:
    case Kind::data:
      return reader.text();
  }
  return {};
}

bool readField(Reader& reader, Field& field) {
  field.key = reader.text();
  field.kind = static_cast<Kind>(reader.number(1));
  const auto value = readValue(reader, field.kind);
  field.value = value.value_or(std::string_view());
  return value && !reader.hasFailed();
}

// Grows with what was really read; the announced number is not trusted.
bool readObject(Reader& reader, Object& object) {
  object.className = reader.text();
  const auto count = reader.number(4);
  for (std::uint64_t i = 0; i < count; ++i) {
    Field field;
    if (!readField(reader, field)) return false;
    object.fields.push_back(field);
  }
  return !reader.hasFailed();
}

}  // namespace

std::optional<std::vector<Object>> parse(std::span<const std::byte> data) {
  Reader reader({reinterpret_cast<const char*>(data.data()), data.size()});
  if (reader.bytes(magic.size()) != magic || reader.number(1) != version) return {};
  std::vector<Object> objects;
  const auto count = reader.number(4);
  for (std::uint64_t i = 0; i < count; ++i) {
    Object object;
    if (!readObject(reader, object)) return {};
    objects.push_back(std::move(object));
  }
  if (objects.empty() || !reader.isAtEnd()) return {};
  return objects;
}

std::uint64_t number(std::string_view value, std::size_t bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = bytes; i-- > 0;) number = number << 8 | static_cast<std::uint8_t>(value[i]);
  return number;
}

void appendNumber(std::vector<std::byte>& data, std::uint64_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) data.push_back(static_cast<std::byte>(value >> (8 * i)));
}

void appendText(std::vector<std::byte>& data, std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max())
    trap("NSKeyedArchiver: a text longer than an archive can hold");
  appendNumber(data, text.size(), 4);
  const auto bytes = std::as_bytes(std::span(text));
  data.insert(data.end(), bytes.begin(), bytes.end());
}

}  // namespace bkuk::archive
