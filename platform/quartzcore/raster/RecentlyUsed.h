#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace bkuk {

/// Keeps what is costly to make until newer things need its room: at most `mostBytes` together, but always
/// the newest. For a few hundred entries, whose keys compare quickly.
template <typename Key, typename Value>
class RecentlyUsed {
 public:
  explicit RecentlyUsed(std::size_t mostBytes) : mostBytes_(mostBytes) {}

  /// Null when there is none of that key.
  [[nodiscard]] const Value* find(const Key& key) {
    const auto found = std::ranges::find(entries_, key, &Entry::key);
    if (found == entries_.end()) return nullptr;
    found->lastUse = ++uses_;
    return &found->value;
  }

  void add(Key key, Value value, std::size_t bytes) {
    bytes_ += bytes;
    while (bytes_ > mostBytes_ && !entries_.empty()) dropOldest();
    entries_.push_back({std::move(key), std::move(value), bytes, ++uses_});
  }

 private:
  struct Entry {
    Key key;
    Value value;
    std::size_t bytes;
    std::size_t lastUse;
  };

  void dropOldest() {
    const auto oldest = std::ranges::min_element(entries_, {}, &Entry::lastUse);
    bytes_ -= oldest->bytes;
    entries_.erase(oldest);
  }

  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::size_t uses_ = 0;
  std::vector<Entry> entries_;
};

}  // namespace bkuk
