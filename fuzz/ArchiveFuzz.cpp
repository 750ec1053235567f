#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/ArchiveFormat.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"

namespace bkuk {
namespace {

/// Reads something of every kind, and of objects as deep and as wide as the archive says.
struct Everything : NSObject, NSCoding {
  bool flag;
  std::int64_t whole;
  double real;
  std::string text;
  std::vector<std::byte> data;
  Ref<NSObject> next;
  std::vector<Ref<NSObject>> others;

  static std::vector<Weak<Everything>>& all() {
    static auto& objects = *new std::vector<Weak<Everything>>;
    return objects;
  }

  explicit Everything(NSCoder& coder) {
    all().push_back(this);
    coder.willDecode(*this);
    flag = coder.decodeBool("flag").value_or(false);
    whole = coder.decodeInteger("whole").value_or(0);
    real = coder.decodeDouble("real").value_or(0);
    text = coder.decodeString("text").value_or("");
    data = coder.decodeData("data").value_or(std::vector<std::byte>());
    next = coder.decodeObject("next");
    others = coder.decodeArray("others").value_or(std::vector<Ref<NSObject>>());
  }

  void encode(NSCoder& coder) const override {
    coder.encodeBool(flag, "flag");
    coder.encodeInteger(whole, "whole");
    coder.encodeDouble(real, "real");
    coder.encodeString(text, "text");
    coder.encodeData(data, "data");
    coder.encode(next, "next");
    coder.encodeArray(others, "others");
  }
};

/// Refuses some.
Ref<NSObject> decoded(NSCoder& coder) {
  const auto object = make<Everything>(coder);
  return object->whole % 2 == 0 ? object : nullptr;
}

const NSCodingRegistration everything("Everything", decoded);

/// Takes circles apart, which would never be freed.
void unlinkAll() {
  for (const auto& each : std::exchange(Everything::all(), {})) {
    const auto object = each.lock();
    if (!object) continue;
    object->next = nullptr;
    object->others.clear();
  }
}

}  // namespace
}  // namespace bkuk

/// Whatever was read can be written, and what was written is an archive again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace bkuk;
  if (const auto object = NSKeyedUnarchiver::unarchive(std::as_bytes(std::span(data, size)))) {
    const auto written = NSKeyedArchiver::archivedData(*object);
    if (!archive::parse(written)) __builtin_trap();
    (void)NSKeyedUnarchiver::unarchive(written);
  }
  unlinkAll();
  return 0;
}
