#include "platform/foundation/NSCoder.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/foundation/NSCoder";

[[noreturn]] void cannotEncode() { fatal("An unarchiver does not encode", unit); }
[[noreturn]] void cannotDecode() { fatal("An archiver does not decode", unit); }

}  // namespace

void NSCoder::encode(const NSObject*, std::string_view) { cannotEncode(); }
void NSCoder::encodeArray(std::span<const Ref<NSObject>>, std::string_view) { cannotEncode(); }
void NSCoder::encodeBool(bool, std::string_view) { cannotEncode(); }
void NSCoder::encodeInteger(std::int64_t, std::string_view) { cannotEncode(); }
void NSCoder::encodeDouble(double, std::string_view) { cannotEncode(); }
void NSCoder::encodeString(std::string_view, std::string_view) { cannotEncode(); }
void NSCoder::encodeData(std::span<const std::byte>, std::string_view) { cannotEncode(); }

Ref<NSObject> NSCoder::decodeObject(std::string_view) { cannotDecode(); }
std::optional<std::vector<Ref<NSObject>>> NSCoder::decodeArray(std::string_view) { cannotDecode(); }
std::optional<bool> NSCoder::decodeBool(std::string_view) { cannotDecode(); }
std::optional<std::int64_t> NSCoder::decodeInteger(std::string_view) { cannotDecode(); }
std::optional<double> NSCoder::decodeDouble(std::string_view) { cannotDecode(); }
std::optional<std::string> NSCoder::decodeString(std::string_view) { cannotDecode(); }
std::optional<std::vector<std::byte>> NSCoder::decodeData(std::string_view) { cannotDecode(); }
bool NSCoder::containsValue(std::string_view) const { cannotDecode(); }
void NSCoder::willDecode(NSObject&) { cannotDecode(); }

}  // namespace bkuk
