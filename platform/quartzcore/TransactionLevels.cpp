#include "platform/quartzcore/TransactionLevels.h"

namespace bkuk {

TransactionLevels& TransactionLevels::shared() {
  static auto& levels = *new TransactionLevels;
  return levels;
}

TransactionLevels::Level& TransactionLevels::innermost() {
  if (levels_.empty()) levels_.emplace_back().isImplicit = true;
  return levels_.back();
}

bool TransactionLevels::end() {
  if (levels_.empty()) return false;
  levels_.pop_back();
  return true;
}

void TransactionLevels::endImplicit() {
  if (isOnlyImplicit()) levels_.pop_back();
}

std::shared_ptr<CompletionGroup> TransactionLevels::completion() const {
  for (auto level = levels_.rbegin(); level != levels_.rend(); ++level) {
    if (level->completion) return level->completion;
  }
  return nullptr;
}

}  // namespace bkuk
