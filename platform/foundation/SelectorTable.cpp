#include "platform/foundation/SelectorTable.h"

#include <algorithm>

#include "platform/foundation/Fatal.h"

namespace bkuk {

const SelectorTable& SelectorTable::make(const SelectorTable& base, std::initializer_list<Entry> entries) {
  return *new SelectorTable(&base, entries);
}

const SelectorTable& SelectorTable::empty() {
  static const auto& table = *new SelectorTable(nullptr, {});
  return table;
}

SelectorTable::Action SelectorTable::find(const Selector& selector) const {
  const auto found = std::ranges::find(entries_, selector, &Entry::selector);
  if (found != entries_.end()) return found->action;
  return base_ ? base_->find(selector) : nullptr;
}

void detail::requireSender(bool fits) {
  if (!fits) trap("NSObject: an operation was performed with a sender of another class than it takes");
}

}  // namespace bkuk
