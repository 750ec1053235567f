#include "platform/foundation/BlockQueue.h"

#include <utility>

namespace bkuk {

void BlockQueue::push(Block block) {
  {
    const std::lock_guard lock(mutex_);
    blocks_.push_back(std::move(block));
  }
  changed_.notify_one();
}

bool BlockQueue::isEmpty() const {
  const std::lock_guard lock(mutex_);
  return blocks_.empty();
}

std::uint64_t BlockQueue::pushedCount() const {
  const std::lock_guard lock(mutex_);
  return poppedCount_ + blocks_.size();
}

std::optional<BlockQueue::Block> BlockQueue::popUpTo(std::uint64_t count) {
  const std::lock_guard lock(mutex_);
  if (blocks_.empty() || poppedCount_ >= count) return {};
  return takeFront();
}

std::optional<BlockQueue::Block> BlockQueue::waitAndPop() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return isClosed_ || !blocks_.empty(); });
  if (blocks_.empty()) return {};
  return takeFront();
}

void BlockQueue::close() {
  {
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
  }
  changed_.notify_one();
}

BlockQueue::Block BlockQueue::takeFront() {
  Block block = std::move(blocks_.front());
  blocks_.pop_front();
  ++poppedCount_;
  return block;
}

}  // namespace bkuk
