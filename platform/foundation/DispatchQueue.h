#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "platform/foundation/NSObject.h"

namespace bkuk {

class BlockQueue;

/// Runs blocks one after the other, first in first out, never inside the call that queues them. All members
/// may be called on any thread.
///
/// The main queue is run by the main run loop, in every mode. Every other queue has a thread of its own; when
/// its last reference goes, the blocks that still wait are run first.
class DispatchQueue final : public NSObject {
 public:
  using Block = std::function<void()>;

  [[nodiscard]] static DispatchQueue& main();
  explicit DispatchQueue(std::string_view label);
  /// Waits for the queue's last block, unless it is that block which let the queue go.
  ~DispatchQueue() override;

  [[nodiscard]] const std::string& label() const { return label_; }
  void async(Block block);

 protected:
  [[nodiscard]] bool mayDieOnAnyThread() const noexcept override { return true; }

 private:
  friend class NSRunLoop;
  DispatchQueue();

  [[nodiscard]] bool isMain() const { return !worker_.joinable(); }
  [[nodiscard]] bool hasWaitingBlocks() const;
  void runWaitingBlocks();

  std::string label_;
  std::shared_ptr<BlockQueue> blocks_;
  std::thread worker_;
};

}  // namespace bkuk
