#pragma once

#include <cstddef>
#include <unordered_map>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Objects by key object. Keys are the same when their hashes and `isEqual` say so; a key must not change
/// either while it is in the table. Keys are held strongly, values strongly or weakly.
class NSMapTable final : public NSObject {
 public:
  /// Holds values strongly.
  NSMapTable() = default;
  /// A table whose values drop out when nobody else holds them.
  [[nodiscard]] static Ref<NSMapTable> strongToWeakObjects();

  /// An equal key that is there keeps its object; its value is replaced. Absent keys and values are ignored.
  void set(NSObject* value, NSObject* forKey);
  /// Empty when the key is missing or its value has died.
  [[nodiscard]] Ref<NSObject> object(const NSObject* forKey);
  void removeObject(const NSObject* forKey);
  void removeAllObjects();
  /// Of entries whose value lives; the others are let go of.
  [[nodiscard]] std::size_t count();

 private:
  struct Key {
    Ref<const NSObject> object;
    std::size_t hash;
    explicit Key(const NSObject* key) : object(key), hash(key->hash()) {}
    bool operator==(const Key& other) const {
      return hash == other.hash && object->isEqual(other.object.get());
    }
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const noexcept { return key.hash; }
  };
  struct Value {
    Ref<NSObject> strong;
    Weak<NSObject> weak;
  };
  using Entries = std::unordered_map<Key, Value, KeyHash>;

  [[nodiscard]] Value stored(NSObject* value) const;
  void purge();

  Entries entries_;
  bool holdsValuesWeakly_ = false;
  std::size_t sizeToPurge_ = 32;
};

}  // namespace bkuk
