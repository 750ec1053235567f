#include "platform/foundation/NSKeyedArchiver.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/foundation/ArchiveFormat.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSCoding.h"

namespace bkuk {

namespace {

using archive::Kind;
using Bytes = std::vector<std::byte>;

constexpr std::string_view unit = "platform/foundation/NSKeyedArchiver";

std::uint64_t checkedCount(std::size_t count) {
  if (count > std::numeric_limits<std::uint32_t>::max())
    trap("NSKeyedArchiver: more elements than an archive can count");
  return count;
}

/// Encoding an object only gives it a number; its fields are written when its turn comes. So a graph of any
/// depth needs no deep stack.
class Archiver final : public NSCoder {
 public:
  Bytes archive(const NSObject& root) {
    (void)numberOf(&root);
    for (std::size_t i = 0; i < objects_.size(); ++i) encodeFields(*objects_[i]);
    Bytes data;
    const auto magic = std::as_bytes(std::span(archive::magic));
    data.insert(data.end(), magic.begin(), magic.end());
    archive::appendNumber(data, archive::version, 1);
    archive::appendNumber(data, checkedCount(objects_.size()), 4);
    data.insert(data.end(), body_.begin(), body_.end());
    return data;
  }

  void encode(const NSObject* object, std::string_view key) override {
    archive::appendNumber(field(key, Kind::object), numberOf(object), 4);
  }
  void encodeArray(std::span<const Ref<NSObject>> objects, std::string_view key) override {
    Bytes& value = field(key, Kind::array);
    archive::appendNumber(value, checkedCount(objects.size()), 4);
    for (const auto& object : objects) archive::appendNumber(value, numberOf(object.get()), 4);
  }
  void encodeBool(bool value, std::string_view key) override {
    archive::appendNumber(field(key, Kind::boolean), value ? 1 : 0, 1);
  }
  void encodeInteger(std::int64_t value, std::string_view key) override {
    archive::appendNumber(field(key, Kind::integer), static_cast<std::uint64_t>(value), 8);
  }
  void encodeDouble(double value, std::string_view key) override {
    archive::appendNumber(field(key, Kind::real), std::bit_cast<std::uint64_t>(value), 8);
  }
  void encodeString(std::string_view value, std::string_view key) override {
    archive::appendText(field(key, Kind::string), value);
  }
  void encodeData(std::span<const std::byte> value, std::string_view key) override {
    archive::appendText(field(key, Kind::data), {reinterpret_cast<const char*>(value.data()), value.size()});
  }

 private:
  struct Field {
    std::string key;
    Bytes kindAndValue;
  };

  /// Where the value of that key goes, behind its kind; an earlier value of the key is dropped.
  Bytes& field(std::string_view key, Kind kind) {
    auto found = std::ranges::find(fields_, key, &Field::key);
    if (found == fields_.end()) found = fields_.insert(found, {std::string(key), {}});
    found->kindAndValue.assign(1, static_cast<std::byte>(kind));
    return found->kindAndValue;
  }

  // Objects are held until the end, so that no address is met twice by chance.
  std::uint64_t numberOf(const NSObject* object) {
    if (!object) return 0;
    const auto [entry, isNew] = numbers_.try_emplace(object, objects_.size() + 1);
    if (isNew) objects_.emplace_back(object);
    return entry->second;
  }

  void encodeFields(const NSObject& object) {
    const auto* coding = dynamic_cast<const NSCoding*>(&object);
    if (!coding) fatal(object.className() + " cannot be archived", unit);
    fields_.clear();
    coding->encode(*this);
    archive::appendText(body_, object.className());
    archive::appendNumber(body_, checkedCount(fields_.size()), 4);
    for (const auto& field : fields_) {
      archive::appendText(body_, field.key);
      body_.insert(body_.end(), field.kindAndValue.begin(), field.kindAndValue.end());
    }
  }

  std::vector<Ref<const NSObject>> objects_;
  std::unordered_map<const NSObject*, std::uint64_t> numbers_;
  std::vector<Field> fields_;  // of the object that is being encoded
  Bytes body_;
};

}  // namespace

std::vector<std::byte> NSKeyedArchiver::archivedData(const NSObject& root) {
  return make<Archiver>()->archive(root);
}

}  // namespace bkuk
