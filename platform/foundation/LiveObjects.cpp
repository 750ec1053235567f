#include "platform/foundation/LiveObjects.h"

#include <mutex>
#include <typeinfo>
#include <unordered_set>

#include "platform/foundation/ClassName.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

namespace {

#if defined(__SANITIZE_THREAD__)
constexpr bool isWatchedForRaces = true;
#elif defined(__has_feature)
constexpr bool isWatchedForRaces = __has_feature(thread_sanitizer);
#else
constexpr bool isWatchedForRaces = false;
#endif

thread_local int pauses = 0;

struct Table {
  std::mutex mutex;
  std::unordered_set<const NSObject*> objects;
};

Table& table() {
  static auto& shared = *new Table;
  return shared;
}

}  // namespace

// Counting puts what threads do in an order, and the thread sanitizer would see no race any more.
void LiveObjects::startCounting() { NSObject::isCounted_ = !isWatchedForRaces; }

// What class an object is of is only known once it is complete, so it is asked for here.
std::map<std::string, std::size_t> LiveObjects::byClass() {
  std::map<const std::type_info*, std::size_t> byType;
  {
    const std::lock_guard lock(table().mutex);
    for (const NSObject* object : table().objects) ++byType[&typeid(*object)];
  }
  std::map<std::string, std::size_t> result;
  for (const auto& [type, count] : byType) result[plainClassName(*type)] += count;
  return result;
}

LiveObjects::Pause::Pause() { ++pauses; }

LiveObjects::Pause::~Pause() { --pauses; }

void LiveObjects::add(const NSObject& object) {
  if (pauses > 0) return;
  const std::lock_guard lock(table().mutex);
  table().objects.insert(&object);
}

void LiveObjects::remove(const NSObject& object) {
  const std::lock_guard lock(table().mutex);
  table().objects.erase(&object);
}

}  // namespace bkuk
