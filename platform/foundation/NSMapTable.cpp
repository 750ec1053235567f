#include "platform/foundation/NSMapTable.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace bkuk {

Ref<NSMapTable> NSMapTable::strongToWeakObjects() {
  auto table = make<NSMapTable>();
  table->holdsValuesWeakly_ = true;
  return table;
}

// What is taken out goes only when the table is whole again: destroying it may call back.
void NSMapTable::set(NSObject* value, NSObject* forKey) {
  if (!value || !forKey) return;
  if (entries_.size() >= sizeToPurge_) purge();
  const auto [entry, isNew] = entries_.try_emplace(Key(forKey), Value());
  const Value before = std::exchange(entry->second, stored(value));
}

Ref<NSObject> NSMapTable::object(const NSObject* forKey) {
  if (!forKey) return {};
  const auto found = entries_.find(Key(forKey));
  if (found == entries_.end()) return {};
  if (!holdsValuesWeakly_) return found->second.strong;
  auto value = found->second.weak.lock();
  if (!value) const auto dead = entries_.extract(found);
  return value;
}

void NSMapTable::removeObject(const NSObject* forKey) {
  if (forKey) const auto removed = entries_.extract(Key(forKey));
}

void NSMapTable::removeAllObjects() { const auto removed = std::exchange(entries_, {}); }

std::size_t NSMapTable::count() {
  purge();
  return entries_.size();
}

NSMapTable::Value NSMapTable::stored(NSObject* value) const {
  return holdsValuesWeakly_ ? Value{nullptr, value} : Value{value, nullptr};
}

void NSMapTable::purge() {
  std::vector<Entries::node_type> dead;
  for (auto entry = entries_.begin(); holdsValuesWeakly_ && entry != entries_.end();) {
    const auto each = entry++;
    if (!each->second.weak.isAlive()) dead.push_back(entries_.extract(each));
  }
  sizeToPurge_ = std::max<std::size_t>(32, 2 * entries_.size());
}

}  // namespace bkuk
