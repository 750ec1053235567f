#include "platform/appkit/NSScreen.h"

#include "host/Desktop.h"
#include "host/Host.h"

namespace bkuk {

namespace {

NSRect flippedAgainst(const host::Screen& main, const NSRect& rect) {
  return {rect.origin.x, main.frame.y + main.frame.height - rect.origin.y - rect.size.height, rect.size.width,
          rect.size.height};
}

NSRect rectOf(const host::Rect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

}  // namespace

std::vector<NSScreen> NSScreen::screens() {
  const auto hostScreens = host::current().desktop().screens();
  std::vector<NSScreen> result;
  result.reserve(hostScreens.size());
  for (const auto& screen : hostScreens) {
    result.push_back({flippedAgainst(hostScreens.front(), rectOf(screen.frame)),
                      flippedAgainst(hostScreens.front(), rectOf(screen.visibleFrame)), screen.scale});
  }
  return result;
}

NSScreen NSScreen::main() { return screens().front(); }

NSRect NSScreenFlipped(const NSRect& rect) {
  return flippedAgainst(host::current().desktop().screens().front(), rect);
}

}  // namespace bkuk
