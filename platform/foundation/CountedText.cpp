#include "platform/foundation/CountedText.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <unordered_set>

namespace bkuk {

struct CountedText::Entry {
  explicit Entry(std::string_view text) : characters(text) {}

  const std::string characters;
  mutable std::atomic<std::uint32_t> holders{0};
};

namespace {

// Finds entries by their characters.
template <typename Entry>
struct Table {
  static std::string_view text(std::string_view view) { return view; }
  static std::string_view text(const Entry& entry) { return entry.characters; }
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const auto& value) const { return std::hash<std::string_view>{}(text(value)); }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(const auto& a, const auto& b) const { return text(a) == text(b); }
  };

  std::mutex mutex;
  std::unordered_set<Entry, Hash, Equal> entries;  // of nodes: their addresses never change

  static Table& shared() {
    static auto& table = *new Table;
    return table;
  }
};

}  // namespace

CountedText::CountedText(std::string_view text) {
  auto& table = Table<Entry>::shared();
  const std::lock_guard lock(table.mutex);
  auto found = table.entries.find(text);
  if (found == table.entries.end()) found = table.entries.emplace(text).first;
  entry_ = &*found;
  entry_->holders.fetch_add(1, std::memory_order_relaxed);
}

CountedText::CountedText(const CountedText& other) noexcept : entry_(other.entry_) {
  if (entry_) entry_->holders.fetch_add(1, std::memory_order_relaxed);
}

// The last holder goes under the lock, so that nobody finds an entry that is about to be erased.
void CountedText::release() noexcept {
  auto holders = entry_->holders.load(std::memory_order_relaxed);
  while (holders > 1) {
    if (entry_->holders.compare_exchange_weak(holders, holders - 1, std::memory_order_acq_rel)) return;
  }
  auto& table = Table<Entry>::shared();
  const std::lock_guard lock(table.mutex);
  if (entry_->holders.fetch_sub(1, std::memory_order_acq_rel) == 1) table.entries.erase(*entry_);
}

std::string_view CountedText::view() const {
  return entry_ ? std::string_view(entry_->characters) : std::string_view();
}

std::size_t CountedText::livingCount() {
  auto& table = Table<Entry>::shared();
  const std::lock_guard lock(table.mutex);
  return table.entries.size();
}

}  // namespace bkuk
