#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace bkuk::host {

/// Numbers at byte offsets of a table. What lies beyond the end reads as 0.
class BigEndianReader {
 public:
  explicit BigEndianReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

  [[nodiscard]] bool holds(std::size_t size) const { return bytes_.size() >= size; }
  [[nodiscard]] std::uint16_t u16(std::size_t offset) const {
    return static_cast<std::uint16_t>(byteAt(offset) << 8 | byteAt(offset + 1));
  }
  [[nodiscard]] std::int16_t i16(std::size_t offset) const { return static_cast<std::int16_t>(u16(offset)); }
  [[nodiscard]] std::uint32_t u32(std::size_t offset) const {
    return std::uint32_t{u16(offset)} << 16 | u16(offset + 2);
  }
  /// A number with 16 bits behind the point.
  [[nodiscard]] double fixed(std::size_t offset) const {
    return static_cast<std::int32_t>(u32(offset)) / 65536.0;
  }
  /// Cut where the table ends.
  [[nodiscard]] std::span<const std::byte> bytes(std::size_t offset, std::size_t length) const {
    if (offset >= bytes_.size()) return {};
    const std::size_t rest = bytes_.size() - offset;
    return bytes_.subspan(offset, length < rest ? length : rest);
  }

 private:
  [[nodiscard]] unsigned byteAt(std::size_t offset) const {
    return offset < bytes_.size() ? std::to_integer<unsigned>(bytes_[offset]) : 0;
  }

  std::span<const std::byte> bytes_;
};

}  // namespace bkuk::host
