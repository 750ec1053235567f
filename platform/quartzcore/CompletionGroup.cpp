#include "platform/quartzcore/CompletionGroup.h"

#include <utility>
#include <vector>

namespace bkuk {

namespace {

std::vector<std::function<void()>>& dueBlocks() {
  static auto& blocks = *new std::vector<std::function<void()>>;
  return blocks;
}

}  // namespace

CompletionGroup::~CompletionGroup() {
  if (block_) dueBlocks().push_back(std::move(block_));
}

void CompletionGroup::callDueBlocks() {
  const auto blocks = std::exchange(dueBlocks(), {});
  for (const auto& block : blocks) block();
}

bool CompletionGroup::hasDueBlocks() { return !dueBlocks().empty(); }

}  // namespace bkuk
