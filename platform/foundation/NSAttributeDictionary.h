#pragma once

#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

#include "platform/foundation/NSAttributeValue.h"
#include "platform/foundation/NSAttributedStringKey.h"

namespace bkuk {

/// The attributes of a piece of text. A value whose copies share their content until one is changed, so that
/// a long text in few styles holds each style once.
class NSAttributeDictionary {
 public:
  using Entry = std::pair<NSAttributedStringKey, NSAttributeValue>;

  NSAttributeDictionary() = default;
  /// Of two entries with one key the later holds.
  NSAttributeDictionary(std::initializer_list<Entry> entries);

  /// In an order of the process's own.
  [[nodiscard]] std::span<const Entry> entries() const;
  [[nodiscard]] bool isEmpty() const { return !content_; }
  [[nodiscard]] std::size_t count() const { return entries().size(); }

  /// Null when the key is absent; valid until the dictionary changes.
  [[nodiscard]] const NSAttributeValue* find(const NSAttributedStringKey& key) const;
  /// The object under the key, null when there is none of that class.
  template <typename T>
  [[nodiscard]] T* object(const NSAttributedStringKey& key) const {
    const auto* value = find(key);
    return value ? value->object<T>() : nullptr;
  }

  void set(const NSAttributedStringKey& key, NSAttributeValue value);
  void remove(const NSAttributedStringKey& key);
  /// Takes over the entries of `other`, also in place of its own.
  void merge(const NSAttributeDictionary& other);

  /// Whether both are copies of one dictionary; two that are not may still be equal.
  [[nodiscard]] bool shares(const NSAttributeDictionary& other) const { return content_ == other.content_; }
  bool operator==(const NSAttributeDictionary& other) const;

 private:
  // Sorted by key. Never changed once two dictionaries share it, never empty.
  struct Content : NSObject {
    std::vector<Entry> entries;
  };

  Ref<Content> content_;
};

}  // namespace bkuk
