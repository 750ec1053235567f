#include "bench/peer/kit/Stage.h"

#include <stdexcept>

#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"
#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "bench/peer/qt/Display.h"
#include "host/Host.h"
#include "host/Loop.h"
#include "platform/foundation/NSRunLoop.h"

namespace bkuk::bench {

namespace {

class FramelessWindow : public BKUKWindow {
 public:
  explicit FramelessWindow(NSSize size) : BKUKWindow(NSRect({}, size), NSWindowStyleMaskBorderless) {}
  [[nodiscard]] bool canBecomeKey() const override { return true; }
};

void askToDraw(NSView& view) {
  view.setNeedsDisplay(true);
  for (const auto& subview : view.subviews()) askToDraw(*subview);
}

}  // namespace

Stage::Stage(NSSize size) : window_(make<FramelessWindow>(size)) {
  window_->setBackgroundColor(BKUKTheme::background());
}

Stage::~Stage() { window_->close(); }

void Stage::showFirstFrame() {
  window_->makeKeyAndOrderFront();
  turnUntil([this] { return peer::isWindowExposed() && backgroundPixel() != 0; });
  peer::waitForDisplay();
}

void Stage::settle() {
  constexpr double seconds = 0.15;
  NSRunLoop::main().run(NSRunLoopMode::default_, host::current().loop().now() + seconds);
}

void Stage::turnUntil(const std::function<bool()>& condition) {
  NSRunLoop::main().run(NSRunLoopMode::default_, [&] { return !condition(); });
}

void Stage::paintAgain(Redraw redraw) {
  static const auto& even = *new Ref<NSColor>(rgb(0xF5F5F5, 1));
  static const auto& odd = *new Ref<NSColor>(rgb(0xF7F7F7, 1));
  isEven_ = !isEven_;
  window_->setBackgroundColor(isEven_ ? even : odd);
  if (redraw == Redraw::views) askToDraw(content());
  NSRunLoop::main().step();
  peer::waitForDisplay();
  if (backgroundPixel() != (isEven_ ? 0xFFF5F5F5 : 0xFFF7F7F7)) throw std::runtime_error("no frame came");
}

std::uint32_t Stage::backgroundPixel() const {
  const auto& image = window_->image();
  return image.size().height > 0 ? image.row(image.size().height - 1).back() : 0;
}

}  // namespace bkuk::bench
