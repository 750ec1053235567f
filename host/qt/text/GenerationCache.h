#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace bkuk::host {

/// What each entry of a cache takes of its room when they are counted.
struct EntryCount {
  std::size_t operator()(const auto&) const { return 1; }
};

/// Keeps what was used lately: when as many entries are new or were found again as one generation holds,
/// those that were not are let go of. `Hash` and `Equal` also take what keys are looked up by; `Weight` tells
/// what a value takes of a generation's room.
template <typename Key, typename Value, typename Hash, typename Equal, typename Weight = EntryCount>
class GenerationCache {
 public:
  explicit GenerationCache(std::size_t generationSize) : generationSize_(generationSize) {}

  /// Null when there is none; valid until the next call.
  template <typename Lookup>
  [[nodiscard]] const Value* find(const Lookup& key) {
    if (const auto found = young_.find(key); found != young_.end()) return &found->second;
    const auto found = old_.find(key);
    if (found == old_.end()) return nullptr;
    auto node = old_.extract(found);
    makeRoomFor(node.mapped());
    return &young_.insert(std::move(node)).position->second;
  }

  const Value& insert(Key key, Value value) {
    makeRoomFor(value);
    return young_.insert_or_assign(std::move(key), std::move(value)).first->second;
  }

 private:
  void makeRoomFor(const Value& value) {
    if (weight_ >= generationSize_) {
      old_ = std::move(young_);
      young_.clear();
      weight_ = 0;
    }
    weight_ += Weight()(value);
  }

  std::size_t generationSize_;
  std::size_t weight_ = 0;  // of the young
  std::unordered_map<Key, Value, Hash, Equal> young_;
  std::unordered_map<Key, Value, Hash, Equal> old_;
};

}  // namespace bkuk::host
