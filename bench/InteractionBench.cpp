#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <new>
#include <vector>

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "platform/coregraphics/CGColor.h"
#include "testing/VirtualHostScope.h"

namespace {

std::size_t allocationCount = 0;
std::size_t allocatedBytes = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocationCount;
  allocatedBytes += size;
  if (void* place = std::malloc(size)) return place;
  throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }

namespace bkuk {
namespace {

constexpr int controlCount = 1000;
constexpr int columns = 20;
constexpr NSSize cell{60, 20};

/// A button as a kit's user would write it: a rounded box whose colour goes with the state.
class Button : public BKUKStatefulView {
 public:
  using BKUKStatefulView::BKUKStatefulView;

  void updateLayer() override {
    BKUKStatefulView::updateLayer();
    layer()->setCornerRadius(4);
    layer()->setBorderWidth(1);
    layer()->setBorderColor(border());
    layer()->setBackgroundColor(state() == States::hover ? hovered() : resting());
  }

 private:
  static const Ref<CGColor>& border() {
    static const auto& color = *new Ref<CGColor>(CGColor::srgb(0.3, 0.3, 0.4));
    return color;
  }
  static const Ref<CGColor>& resting() {
    static const auto& color = *new Ref<CGColor>(CGColor::srgb(0.9, 0.9, 0.95));
    return color;
  }
  static const Ref<CGColor>& hovered() {
    static const auto& color = *new Ref<CGColor>(CGColor::srgb(0.7, 0.8, 1));
    return color;
  }
};

struct Buttons {
  Buttons() {
    for (int i = 0; i < controlCount; ++i) {
      const auto view = make<Button>(NSRect(i % columns * cell.width, i / columns * cell.height, 50, 16));
      window->contentView()->addSubview(view);
      views.push_back(view);
    }
    window->makeKeyAndOrderFront();
    host->settle();
  }
  ~Buttons() { window->close(); }

  [[nodiscard]] VirtualWindow& desktop() const { return *host->windows().front(); }

  VirtualHostScope host;
  Ref<BKUKWindow> window =
      make<BKUKWindow>(NSRect(0, 0, columns* cell.width, controlCount / columns * cell.height));
  std::vector<Ref<Button>> views;
};

/// From the pointer's move to the finished pixels, on a window with 1,000 controls: one move into a control
/// or out of it, half of them each.
void hover(benchmark::State& state) {
  Buttons buttons;
  auto& desktop = buttons.desktop();
  const double height = controlCount / columns * cell.height;
  int next = 0;
  std::size_t painted = 0;
  std::size_t moves = 0;
  const auto step = [&] {
    const int i = next / 2 % controlCount;
    const bool isInside = next++ % 2 == 0;
    desktop.movePointer(
        {i % columns * cell.width + (isInside ? 20.0 : 55.0), height - i / columns * cell.height - 8});
  };
  for (int i = 0; i < 100; ++i) step();
  allocationCount = 0;
  for (auto _ : state) {
    step();
    painted += buttons.window->renderer().paintedLayerCount();
    ++moves;
  }
  state.counters["allocations"] = static_cast<double>(allocationCount) / static_cast<double>(moves);
  state.counters["layers painted"] = static_cast<double>(painted) / static_cast<double>(moves);
}
BENCHMARK(hover);

/// A stateful view that nothing was asked of yet.
void makeStatefulView(benchmark::State& state) {
  const VirtualHostScope host;
  std::size_t count = 0;
  allocatedBytes = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(make<BKUKStatefulView>(NSRect(0, 0, 80, 24)));
    ++count;
  }
  state.counters["bytes"] = static_cast<double>(allocatedBytes) / static_cast<double>(count);
}
BENCHMARK(makeStatefulView);

class Listener : public NSObject, public BKUKStatefulViewDelegate {
 public:
  void stateChanged(BKUKInteractionState, BKUKStatefulView&) override { ++count; }
  int count = 0;
};

/// One call to ten delegates.
void invokeMulticast(benchmark::State& state) {
  const VirtualHostScope host;
  const auto view = make<BKUKStatefulView>();
  std::vector<Ref<Listener>> listeners;
  for (int i = 0; i < 10; ++i) {
    listeners.push_back(make<Listener>());
    view->delegates()->add(listeners.back().get());
  }
  for (auto _ : state) {
    view->delegates()->invoke([&](BKUKStatefulViewDelegate& delegate) {
      delegate.stateChanged(BKUKInteractionState::hover, *view);
    });
  }
}
BENCHMARK(invokeMulticast);

}  // namespace
}  // namespace bkuk
