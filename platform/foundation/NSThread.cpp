#include "platform/foundation/NSThread.h"

#include <atomic>
#include <thread>

namespace bkuk {

namespace {

std::atomic<std::thread::id>& mainThread() {
  static std::atomic<std::thread::id> id(std::this_thread::get_id());
  return id;
}

// Asked for while the library is loaded, so that no later thread takes itself for the main one.
[[maybe_unused]] const auto& loadedHere = mainThread();

}  // namespace

bool NSThread::isMainThread() { return mainThread().load() == std::this_thread::get_id(); }

void NSThread::becomeMainThread() { mainThread().store(std::this_thread::get_id()); }

}  // namespace bkuk
