#pragma once

#include <functional>
#include <memory>

namespace bkuk {

/// What waits for the same completion: a transaction's level while it is open, the animations added in it,
/// and the groups of levels inside it. When the last of them lets go, the block is due.
class CompletionGroup {
 public:
  CompletionGroup(std::function<void()> block, std::shared_ptr<CompletionGroup> outer)
      : block_(std::move(block)), outer_(std::move(outer)) {}
  ~CompletionGroup();
  CompletionGroup(const CompletionGroup&) = delete;
  CompletionGroup& operator=(const CompletionGroup&) = delete;

  [[nodiscard]] const std::function<void()>& block() const { return block_; }

  /// Calls the blocks that are due. Groups end in the middle of other work, so the blocks wait until it is
  /// safe to call out.
  static void callDueBlocks();
  [[nodiscard]] static bool hasDueBlocks();

 private:
  std::function<void()> block_;
  std::shared_ptr<CompletionGroup> outer_;
};

}  // namespace bkuk
