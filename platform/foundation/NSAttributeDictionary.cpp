#include "platform/foundation/NSAttributeDictionary.h"

#include <algorithm>

namespace bkuk {

namespace {

using Entry = NSAttributeDictionary::Entry;

template <typename Entries>
auto lowerBound(Entries& entries, const NSAttributedStringKey& key) {
  return std::lower_bound(
      entries.begin(), entries.end(), key,
      [](const Entry& entry, const NSAttributedStringKey& sought) { return entry.first < sought; });
}

}  // namespace

NSAttributeDictionary::NSAttributeDictionary(std::initializer_list<Entry> entries) {
  for (const auto& [key, value] : entries) set(key, value);
}

std::span<const Entry> NSAttributeDictionary::entries() const {
  if (!content_) return {};
  return content_->entries;
}

const NSAttributeValue* NSAttributeDictionary::find(const NSAttributedStringKey& key) const {
  for (const auto& entry : entries()) {
    if (entry.first == key) return &entry.second;
  }
  return nullptr;
}

void NSAttributeDictionary::set(const NSAttributedStringKey& key, NSAttributeValue value) {
  auto changed = make<Content>();
  if (content_) changed->entries = content_->entries;
  const auto at = lowerBound(changed->entries, key);
  if (at != changed->entries.end() && at->first == key) {
    at->second = std::move(value);
  } else {
    changed->entries.emplace(at, key, std::move(value));
  }
  content_ = std::move(changed);
}

void NSAttributeDictionary::remove(const NSAttributedStringKey& key) {
  if (!find(key)) return;
  if (count() == 1) {
    content_ = nullptr;
    return;
  }
  auto changed = make<Content>();
  for (const auto& entry : entries()) {
    if (entry.first != key) changed->entries.push_back(entry);
  }
  content_ = std::move(changed);
}

void NSAttributeDictionary::merge(const NSAttributeDictionary& other) {
  if (isEmpty()) {
    content_ = other.content_;
    return;
  }
  for (const auto& [key, value] : other.entries()) set(key, value);
}

bool NSAttributeDictionary::operator==(const NSAttributeDictionary& other) const {
  return shares(other) || std::ranges::equal(entries(), other.entries());
}

}  // namespace bkuk
