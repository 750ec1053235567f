#include "platform/foundation/NSKeyValueObservation.h"

#include <unordered_map>
#include <vector>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

using Observations = std::vector<Weak<NSKeyValueObservation>>;

// Beside the objects rather than in them: few of them are ever observed. An entry lives no longer than the
// tokens in it, and a token knows its object by weak reference, so that an address used again is harmless.
std::unordered_map<const NSObject*, Observations>& table() {
  static auto& observations = *new std::unordered_map<const NSObject*, Observations>;
  return observations;
}

}  // namespace

NSKeyValueObservation::NSKeyValueObservation(NSObject& object, std::string_view keyPath, Handler handler)
    : object_(&object),
      address_(&object),
      keyPath_(keyPath),
      handler_(required(std::move(handler), "observe: no handler; give one that is called after a change")) {
  table()[address_].push_back(Weak<NSKeyValueObservation>(this));
}

NSKeyValueObservation::~NSKeyValueObservation() { leaveTable(); }

void NSKeyValueObservation::invalidate() {
  leaveTable();
  object_ = nullptr;
}

// A dying token reads empty already, so that whatever does is taken out with it.
void NSKeyValueObservation::leaveTable() {
  const auto entry = table().find(address_);
  if (entry == table().end()) return;
  std::erase_if(entry->second,
                [this](const auto& token) { return !token.isAlive() || token.refersTo(this); });
  if (entry->second.empty()) table().erase(entry);
}

void NSKeyValueObservation::notify(const NSObject& object, std::string_view key) {
  if (object_.refersTo(&object) && keyPath_ == key) handler_();
}

Ref<NSKeyValueObservation> observe(NSObject& object, std::string_view keyPath,
                                   NSKeyValueObservation::Handler handler) {
  return make<NSKeyValueObservation>(object, keyPath, std::move(handler));
}

void didChangeValue(NSObject& object, std::string_view key) {
  const auto entry = table().find(&object);
  if (entry == table().end()) return;
  const Ref<NSObject> keepObject(&object);
  const Observations snapshot = entry->second;
  for (const auto& each : snapshot) {
    if (const auto token = each.lock()) token->notify(object, key);
  }
}

}  // namespace bkuk
