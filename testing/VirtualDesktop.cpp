#include "testing/VirtualDesktop.h"

#include <cassert>
#include <utility>

#include "testing/VirtualWindow.h"

namespace bkuk {

void VirtualDesktop::setScreens(std::vector<host::Screen> screens) {
  assert(!screens.empty());
  screens_ = std::move(screens);
}

std::unique_ptr<host::Window> VirtualDesktop::makeWindow(const host::WindowOptions& options,
                                                         host::WindowClient& client) {
  return std::make_unique<VirtualWindow>(*this, options, client);
}

void VirtualDesktop::remove(VirtualWindow& window) {
  std::erase(windows_, &window);
  if (focusedWindow_ == &window) focusedWindow_ = nullptr;
  if (pointerWindow_ == &window) pointerWindow_ = nullptr;
  queue_.drop(window);
}

void VirtualDesktop::setFocusedWindow(VirtualWindow* window) {
  if (window == focusedWindow_) return;
  if (auto* before = std::exchange(focusedWindow_, window)) before->tellFocus(false);
  if (window) window->tellFocus(true);
}

void VirtualDesktop::setPointerWindow(VirtualWindow* window) {
  if (window == pointerWindow_) return;
  if (auto* before = std::exchange(pointerWindow_, window)) before->tellLeave();
  if (window) window->tellEnter();
}

}  // namespace bkuk
