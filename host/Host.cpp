#include "host/Host.h"

#include <mutex>
#include <utility>
#include <vector>

#include "host/Loop.h"

namespace bkuk::host {

namespace {

// Never destroyed: windows and timers of static lifetime may still ask it on the way out.
std::unique_ptr<Host>& slot() {
  static auto& host = *new std::unique_ptr<Host>;
  return host;
}

// Only the main thread changes the slot, and reads it freely; other threads read it under this lock.
std::mutex& slotMutex() {
  static auto& mutex = *new std::mutex;
  return mutex;
}

std::unique_ptr<Host> exchangeSlot(std::unique_ptr<Host> host) {
  const std::lock_guard lock(slotMutex());
  return std::exchange(slot(), std::move(host));
}

std::vector<void (*)(Host&)>& observers() {
  static auto& list = *new std::vector<void (*)(Host&)>;
  return list;
}

void announce(Host& host) {
  const auto snapshot = observers();
  for (const auto observer : snapshot) observer(host);
}

}  // namespace

Host& current() {
  auto& host = slot();
  if (!host) install(makeDesktopHost());
  return *host;
}

std::unique_ptr<Host> install(std::unique_ptr<Host> host) {
  auto previous = exchangeSlot(std::move(host));
  if (slot()) announce(*slot());
  return previous;
}

Host* currentIfAny() { return slot().get(); }

void wake() {
  const std::lock_guard lock(slotMutex());
  if (slot()) slot()->loop().wake();
}

void addInstallObserver(void (*observer)(Host& host)) {
  observers().push_back(observer);
  if (slot()) observer(*slot());
}

}  // namespace bkuk::host
