#include "platform/appkit/text/NSTextStorage.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

/// One edit that stands for both, `later` coming after `earlier`.
TextStorageEdit united(const TextStorageEdit& earlier, const TextStorageEdit& later) {
  // Where the earlier range ends after the later edit: what lies behind that edit moves, and what it replaced
  // is all inside its own range.
  const auto change = later.changeInLength;
  const auto oldEndOfLater = static_cast<std::ptrdiff_t>(NSMaxRange(later.editedRange)) - change;
  const auto oldEnd = std::max(static_cast<std::ptrdiff_t>(NSMaxRange(earlier.editedRange)), oldEndOfLater);
  const std::size_t start = std::min(earlier.editedRange.location, later.editedRange.location);
  return {.editedCharacters = earlier.editedCharacters || later.editedCharacters,
          .editedRange = {start, static_cast<std::size_t>(oldEnd + change) - start},
          .changeInLength = earlier.changeInLength + change};
}

}  // namespace

NSTextStorage::~NSTextStorage() {
  for (const auto& manager : managers_) manager.listener->setTextStorage(nullptr);
}

NSTextStorage::Managers::iterator NSTextStorage::find(const TextStorageListener& listener) {
  return std::ranges::find_if(managers_, [&](const Manager& each) { return each.listener == &listener; });
}

std::vector<Ref<TextStorageListener>> NSTextStorage::layoutManagers() const {
  std::vector<Ref<TextStorageListener>> listeners;
  for (const auto& each : managers_) listeners.push_back(each.listener);
  return listeners;
}

void NSTextStorage::addLayoutManager(const Ref<TextStorageListener>& manager) {
  if (find(*manager) != managers_.end()) return;
  const Ref<TextStorageListener> added = manager;
  managers_.push_back({added, {}});
  added->setTextStorage(this);
}

void NSTextStorage::removeLayoutManager(const TextStorageListener& manager) {
  const auto found = find(manager);
  if (found == managers_.end()) return;
  const Ref<TextStorageListener> removed = found->listener;
  managers_.erase(found);
  removed->setTextStorage(nullptr);
}

void NSTextStorage::endEditing() {
  if (depth_ == 0) fatal("endEditing without beginEditing", "NSTextStorage");
  if (--depth_ == 0) tellManagers();
}

void NSTextStorage::didEdit(Edited what, NSRange range, std::ptrdiff_t changeInLength) {
  const TextStorageEdit edit{what == Edited::characters, range, changeInLength};
  for (auto& each : managers_) each.untold = each.untold ? united(*each.untold, edit) : edit;
  if (depth_ == 0) tellManagers();
}

// A manager may edit the text or add and remove managers while it is told. Each has its own account of what
// it has not heard yet, so that what it is told is always about the text as it is.
void NSTextStorage::tellManagers() {
  if (isTelling_) return;
  const Ref<NSTextStorage> self(this);
  isTelling_ = true;
  const auto isUntold = [](const Manager& each) { return each.untold.has_value(); };
  while (depth_ == 0) {
    const auto next = std::ranges::find_if(managers_, isUntold);
    if (next == managers_.end()) break;
    const auto edit = *std::exchange(next->untold, std::nullopt);
    const Ref<TextStorageListener> listener = next->listener;
    listener->processEditing(*this, edit);
  }
  isTelling_ = false;
}

}  // namespace bkuk
