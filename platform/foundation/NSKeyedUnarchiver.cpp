#include "platform/foundation/NSKeyedUnarchiver.h"

#include <algorithm>
#include <bit>
#include <utility>
#include <vector>

#include "platform/foundation/ArchiveFormat.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSCoding.h"

namespace bkuk {

namespace {

using archive::Kind;

/// Makes each object of a parsed archive at most once, when it is first asked for.
class Unarchiver final : public NSCoder {
 public:
  explicit Unarchiver(std::vector<archive::Object> objects)
      : parsed_(std::move(objects)), made_(parsed_.size()) {}

  Ref<NSObject> root() {
    auto object = objectOf(1);
    return isBroken_ ? nullptr : object;
  }

  Ref<NSObject> decodeObject(std::string_view key) override {
    const auto value = find(key, Kind::object);
    return value ? objectOf(archive::number(*value, 4)) : nullptr;
  }

  std::optional<std::vector<Ref<NSObject>>> decodeArray(std::string_view key) override {
    auto value = find(key, Kind::array);
    if (!value) return {};
    std::vector<Ref<NSObject>> objects;
    for (; !value->empty(); value->remove_prefix(4)) {
      const auto number = archive::number(*value, 4);
      objects.push_back(objectOf(number));
      if (number != 0 && !objects.back()) return {};
    }
    return objects;
  }

  std::optional<bool> decodeBool(std::string_view key) override {
    const auto value = find(key, Kind::boolean);
    if (!value) return {};
    return archive::number(*value, 1) != 0;
  }

  std::optional<std::int64_t> decodeInteger(std::string_view key) override {
    const auto value = find(key, Kind::integer);
    if (!value) return {};
    return static_cast<std::int64_t>(archive::number(*value, 8));
  }

  std::optional<double> decodeDouble(std::string_view key) override {
    const auto value = find(key, Kind::real);
    if (!value) return {};
    return std::bit_cast<double>(archive::number(*value, 8));
  }

  std::optional<std::string> decodeString(std::string_view key) override {
    const auto value = find(key, Kind::string);
    if (!value) return {};
    return std::string(*value);
  }

  std::optional<std::vector<std::byte>> decodeData(std::string_view key) override {
    const auto value = find(key, Kind::data);
    if (!value) return {};
    const auto bytes = std::as_bytes(std::span(*value));
    return std::vector<std::byte>(bytes.begin(), bytes.end());
  }

  bool containsValue(std::string_view key) const override { return find(key) != nullptr; }

  void willDecode(NSObject& object) override { made_[current_].object = &object; }

 private:
  enum class State { untouched, underWay, made, failed };
  struct Made {
    State state = State::untouched;
    Ref<NSObject> object;
  };

  const archive::Field* find(std::string_view key) const {
    const auto& fields = parsed_[current_].fields;
    const auto found = std::ranges::find(fields, key, &archive::Field::key);
    return found != fields.end() ? &*found : nullptr;
  }

  std::optional<std::string_view> find(std::string_view key, Kind kind) const {
    const auto* field = find(key);
    if (!field || field->kind != kind) return {};
    return field->value;
  }

  Ref<NSObject> objectOf(std::uint64_t number) {
    if (number == 0) return {};
    isBroken_ = isBroken_ || number > made_.size();
    if (isBroken_) return {};
    const auto index = static_cast<std::size_t>(number - 1);
    if (made_[index].state == State::untouched) makeObject(index);
    return made_[index].object;
  }

  void makeObject(std::size_t index) {
    isBroken_ = isBroken_ || depth_ == NSKeyedUnarchiver::maxDepth;
    if (isBroken_) return;
    made_[index].state = State::underWay;
    const auto outer = std::exchange(current_, index);
    ++depth_;
    const auto factory = NSCodingRegistration::find(parsed_[index].className);
    made_[index].object = factory ? factory(*this) : nullptr;
    --depth_;
    current_ = outer;
    made_[index].state = made_[index].object ? State::made : State::failed;
  }

  std::vector<archive::Object> parsed_;
  std::vector<Made> made_;
  std::size_t current_ = 0;  // the object under construction, whose fields are read
  int depth_ = 0;
  bool isBroken_ = false;  // for good: nothing more is made
};

}  // namespace

Ref<NSObject> NSKeyedUnarchiver::unarchive(std::span<const std::byte> data) {
  auto objects = archive::parse(data);
  return objects ? make<Unarchiver>(std::move(*objects))->root() : nullptr;
}

}  // namespace bkuk
