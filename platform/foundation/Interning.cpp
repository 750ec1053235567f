#include "platform/foundation/Interning.h"

#include <functional>
#include <mutex>
#include <unordered_set>

namespace bkuk {

namespace {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

}  // namespace

// A set of nodes: the addresses of its strings never change.
const std::string& interned(std::string_view text) {
  static auto& mutex = *new std::mutex;
  static auto& texts = *new std::unordered_set<std::string, TextHash, std::equal_to<>>;
  const std::lock_guard lock(mutex);
  const auto found = texts.find(text);
  return found != texts.end() ? *found : *texts.emplace(text).first;
}

}  // namespace bkuk
