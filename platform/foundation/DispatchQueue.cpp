#include "platform/foundation/DispatchQueue.h"

#include <utility>

#include "platform/foundation/BlockQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

DispatchQueue& DispatchQueue::main() {
  static const auto& queue = permanent([] { return Ref<DispatchQueue>::adopt(new DispatchQueue); });
  return *queue;
}

DispatchQueue::DispatchQueue() : label_("main"), blocks_(std::make_shared<BlockQueue>()) {}

// The thread shares the blocks, not the queue: it may outlive it.
DispatchQueue::DispatchQueue(std::string_view label)
    : label_(label), blocks_(std::make_shared<BlockQueue>()), worker_([blocks = blocks_] {
        while (const auto block = blocks->waitAndPop()) (*block)();
      }) {}

DispatchQueue::~DispatchQueue() {
  blocks_->close();
  if (worker_.get_id() == std::this_thread::get_id()) {
    worker_.detach();
  } else if (worker_.joinable()) {
    worker_.join();
  }
}

void DispatchQueue::async(Block block) {
  blocks_->push(required(std::move(block), "DispatchQueue: async without a block"));
  if (isMain()) NSRunLoop::mainQueueGrew();
}

bool DispatchQueue::hasWaitingBlocks() const { return !blocks_->isEmpty(); }

void DispatchQueue::runWaitingBlocks() {
  const auto count = blocks_->pushedCount();
  while (const auto block = blocks_->popUpTo(count)) (*block)();
}

}  // namespace bkuk
