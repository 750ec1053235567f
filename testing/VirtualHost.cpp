#include "testing/VirtualHost.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "host/qt/QtDrawing.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk {

namespace {

// Work that begets work at the same date for longer than this never ends.
constexpr int maximumTurnsPerDate = 100'000;

// Back to false also when a test's handler of fatal stops throws through a turn.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flag() { flag_ = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
};

[[noreturn]] void stopEndlessTurns() {
  std::fputs("VirtualHost: the run loop has work again after every turn, without time passing\n", stderr);
  std::abort();
}

}  // namespace

VirtualHost::VirtualHost() : fonts_(host::makeInstalledFonts()) {}

VirtualHost::~VirtualHost() = default;

// --- time

void VirtualHost::advance(double seconds) {
  const double target = now_ + std::max(seconds, 0.0);
  if (isRunningTurns_) {
    now_ = target;
    return;
  }
  const Flag running(isRunningTurns_);
  runDueTurns();
  while (due_ && *due_ <= target) {
    now_ = std::max(now_, *due_);
    runDueTurns();
  }
  if (now_ < target) {
    now_ = target;
    runDueTurns();
  }
}

bool VirtualHost::hasWork() const {
  return isWoken_ || !queue_.isEmpty() || appearance_.hasChange() || (due_ && *due_ <= now_);
}

// The first turn is for free: what the library changed between two calls is committed by it.
void VirtualHost::runDueTurns() {
  int turns = 0;
  do {
    runTurn();
    if (++turns > maximumTurnsPerDate) stopEndlessTurns();
  } while (hasWork());
}

void VirtualHost::runTurn() {
  isWoken_ = false;
  due_.reset();
  if (client_) {
    client_->turn();
  } else {
    dispatchEvent();
  }
}

bool VirtualHost::dispatchEvent() { return appearance_.deliver() || queue_.dispatch(); }

void VirtualHost::wait(std::optional<double> until) {
  if (isWoken_.exchange(false) || !queue_.isEmpty() || appearance_.hasChange()) return;
  if (until) {
    now_ = std::max(now_, *until);
  } else if (const auto handler = idleHandler_) {
    handler();
  }
}

// --- the desktop

void VirtualHost::setScreens(std::vector<host::Screen> screens) {
  assert(!screens.empty());
  screens_ = std::move(screens);
}

void VirtualHost::setAppearance(const host::Appearance& appearance) {
  appearance_.announce(appearance);
  settle();
}

void VirtualHost::setAppearanceHandler(std::function<void()> changed) {
  appearance_.setHandler(std::move(changed));
}

std::unique_ptr<host::Window> VirtualHost::makeWindow(const host::WindowOptions& options,
                                                      host::WindowClient& client) {
  return std::make_unique<VirtualWindow>(*this, options, client);
}

host::DecodedImage VirtualHost::decodeImage(std::span<const std::byte> file) const {
  return host::decodeImageFile(file);
}

std::unique_ptr<host::Canvas> VirtualHost::makeCanvas(host::Bitmap& bitmap) {
  return host::makeRasterCanvas(bitmap);
}

void VirtualHost::announce(const host::AccessibilityChange& change) {
  if (screenReader_) screenReader_->note(change);
}

// --- for its windows

void VirtualHost::remove(VirtualWindow& window) {
  std::erase(windows_, &window);
  if (focusedWindow_ == &window) focusedWindow_ = nullptr;
  if (pointerWindow_ == &window) pointerWindow_ = nullptr;
  queue_.drop(window);
}

void VirtualHost::push(VirtualWindow& window, host::WindowClient& client, host::WindowEvent event) {
  queue_.push(window, client, std::move(event));
}

void VirtualHost::setFocusedWindow(VirtualWindow* window) {
  if (window == focusedWindow_) return;
  if (auto* before = std::exchange(focusedWindow_, window)) before->tellFocus(false);
  if (window) window->tellFocus(true);
}

void VirtualHost::setPointerWindow(VirtualWindow* window) {
  if (window == pointerWindow_) return;
  if (auto* before = std::exchange(pointerWindow_, window)) before->tellLeave();
  if (window) window->tellEnter();
}

}  // namespace bkuk
