#pragma once

#include <cstddef>
#include <vector>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// A set of objects that it does not keep alive, in order of first addition. Objects are the same when their
/// hashes and `isEqual` say so.
class NSHashTable final : public NSObject {
 public:
  [[nodiscard]] static Ref<NSHashTable> weakObjectsHashTable() { return make<NSHashTable>(); }

  /// Changes nothing when an equal object is there. An absent object is ignored.
  void add(NSObject* object);
  /// Takes out the equal object, if there is one.
  void remove(const NSObject* object);
  void removeAllObjects();

  [[nodiscard]] bool contains(const NSObject* object) const;
  /// The living objects; they stay alive as long as the result does.
  [[nodiscard]] std::vector<Ref<NSObject>> allObjects() const;
  /// Of living objects only.
  [[nodiscard]] std::size_t count() const;

 private:
  struct Entry {
    std::size_t hash;
    Weak<NSObject> object;
  };
  using Entries = std::vector<Entry>;

  [[nodiscard]] Entries::const_iterator find(const NSObject* object) const;

  Entries entries_;
};

}  // namespace bkuk
