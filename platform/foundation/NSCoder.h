#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// What an object writes its fields to and reads them from, each under a key of its own. Encoding under a key
/// for a second time replaces the first value. An archiver encodes only, an unarchiver decodes only; calling
/// the other half is a fatal error.
class NSCoder : public NSObject {
 public:
  /// The object must be an `NSCoding`, or absent. An object met twice is stored once.
  virtual void encode(const NSObject* object, std::string_view key);
  void encode(const Ref<NSObject>& object, std::string_view key) { encode(object.get(), key); }
  virtual void encodeArray(std::span<const Ref<NSObject>> objects, std::string_view key);
  virtual void encodeBool(bool value, std::string_view key);
  virtual void encodeInteger(std::int64_t value, std::string_view key);
  virtual void encodeDouble(double value, std::string_view key);
  virtual void encodeString(std::string_view value, std::string_view key);
  virtual void encodeData(std::span<const std::byte> value, std::string_view key);

  /// Empty when the key is missing or the object could not be made. The class is whatever the archive names:
  /// use the typed form where it matters.
  [[nodiscard]] virtual Ref<NSObject> decodeObject(std::string_view key);
  template <typename T>
  [[nodiscard]] Ref<T> decodeObject(std::string_view key) {
    return as<T>(decodeObject(key));
  }
  /// Absent when the key is missing, holds something else or an element could not be made. Elements that were
  /// absent when they were encoded are empty.
  [[nodiscard]] virtual std::optional<std::vector<Ref<NSObject>>> decodeArray(std::string_view key);
  /// These are absent when the key is missing or holds something else.
  [[nodiscard]] virtual std::optional<bool> decodeBool(std::string_view key);
  [[nodiscard]] virtual std::optional<std::int64_t> decodeInteger(std::string_view key);
  [[nodiscard]] virtual std::optional<double> decodeDouble(std::string_view key);
  [[nodiscard]] virtual std::optional<std::string> decodeString(std::string_view key);
  [[nodiscard]] virtual std::optional<std::vector<std::byte>> decodeData(std::string_view key);

  [[nodiscard]] virtual bool containsValue(std::string_view key) const;

  /// Called in the coder constructor of a class whose objects can refer back to themselves, before it decodes
  /// its first object: makes `object` what such a reference reads. Without it the reference reads empty.
  virtual void willDecode(NSObject& object);
};

}  // namespace bkuk
