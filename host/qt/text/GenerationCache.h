#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace bkuk::host {

/// Keeps what was used lately: when as many entries are new or were found again as one generation holds,
/// those that were not are let go of. `Hash` and `Equal` also take what keys are looked up by.
template <typename Key, typename Value, typename Hash, typename Equal>
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
    makeRoom();
    return &young_.insert(std::move(node)).position->second;
  }

  const Value& insert(Key key, Value value) {
    makeRoom();
    return young_.insert_or_assign(std::move(key), std::move(value)).first->second;
  }

 private:
  void makeRoom() {
    if (young_.size() < generationSize_) return;
    old_ = std::move(young_);
    young_.clear();
  }

  std::size_t generationSize_;
  std::unordered_map<Key, Value, Hash, Equal> young_;
  std::unordered_map<Key, Value, Hash, Equal> old_;
};

}  // namespace bkuk::host
