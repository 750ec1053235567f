#include "platform/foundation/NSHashTable.h"

#include <algorithm>

namespace bkuk {

void NSHashTable::add(NSObject* object) {
  if (!object || contains(object)) return;
  if (entries_.size() == entries_.capacity()) {
    std::erase_if(entries_, [](const Entry& entry) { return !entry.object.isAlive(); });
  }
  entries_.push_back({object->hash(), object});
}

void NSHashTable::remove(const NSObject* object) {
  const auto found = find(object);
  if (found != entries_.end()) entries_.erase(found);
}

void NSHashTable::removeAllObjects() { entries_.clear(); }

bool NSHashTable::contains(const NSObject* object) const { return find(object) != entries_.end(); }

std::vector<Ref<NSObject>> NSHashTable::allObjects() const {
  std::vector<Ref<NSObject>> objects;
  objects.reserve(entries_.size());
  for (const auto& entry : entries_) {
    if (auto object = entry.object.lock()) objects.push_back(std::move(object));
  }
  return objects;
}

std::size_t NSHashTable::count() const {
  const auto alive = std::ranges::count_if(entries_, [](const Entry& e) { return e.object.isAlive(); });
  return static_cast<std::size_t>(alive);
}

NSHashTable::Entries::const_iterator NSHashTable::find(const NSObject* object) const {
  if (!object) return entries_.end();
  const auto hash = object->hash();
  return std::ranges::find_if(entries_, [&](const Entry& entry) {
    if (entry.hash != hash) return false;
    const auto member = entry.object.lock();
    return member && member->isEqual(object);
  });
}

}  // namespace bkuk
