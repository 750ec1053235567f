#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

namespace bkuk {

/// Blocks that wait to be run, first in first out, filled from any thread. What both kinds of `DispatchQueue`
/// are made of.
class BlockQueue {
 public:
  using Block = std::function<void()>;

  void push(Block block);
  [[nodiscard]] bool isEmpty() const;

  /// How many blocks were ever pushed: passed to `popUpTo` later, it leaves the blocks that came since.
  [[nodiscard]] std::uint64_t pushedCount() const;
  [[nodiscard]] std::optional<Block> popUpTo(std::uint64_t count);

  /// Waits for a block. Absent once the queue is closed and empty.
  [[nodiscard]] std::optional<Block> waitAndPop();
  void close();

 private:
  Block takeFront();

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Block> blocks_;
  std::uint64_t poppedCount_ = 0;
  bool isClosed_ = false;
};

}  // namespace bkuk
