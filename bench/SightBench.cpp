// Lists far longer than their window: what they hold in memory, and what a notch of the wheel costs.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

#include "bench/ResidentMemory.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr NSSize windowSize{640, 480};
constexpr double rowHeight = 24;

std::size_t draws = 0;

class Row : public NSView {
 public:
  using NSView::NSView;

  void draw(NSRect) override {
    ++draws;
    const auto context = NSGraphicsContext::current()->cgContext();
    context->setFillColor(CGColor::srgb(0.9, 0.9, 1));
    context->fill(bounds());
  }
};

struct List {
  explicit List(int count) {
    host->setScale(2);
    window = make<NSWindow>(NSRect{0, 0, windowSize.width, windowSize.height}, NSWindowStyleMaskTitled);
    for (int i = 0; i < count; ++i) {
      rows.push_back(make<Row>(NSRect{0, i * rowHeight, windowSize.width, rowHeight - 1}));
      window->contentView()->addSubview(rows.back());
    }
    window->orderFront();
    host->settle();
  }
  ~List() { window->close(); }

  [[nodiscard]] double megabytes() const {
    double bytes = 0;
    for (const auto& row : rows) {
      if (const auto& contents = row->layer()->contents()) {
        if (contents->hasBitmap())
          bytes += 4.0 * contents->bitmapSize().width * contents->bitmapSize().height;
      }
    }
    return bytes / (1 << 20);
  }

  VirtualHostScope host;
  Ref<NSWindow> window;
  std::vector<Ref<Row>> rows;
};

/// One notch, three rows further, to the finished pixels, in a list of as many rows as the argument says.
void scroll(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  const double before = residentMegabytes();
  List list(count);
  const double height = count * rowHeight - windowSize.height;
  double y = 0;
  double most = list.megabytes();
  std::size_t notches = 0;
  draws = 0;
  for (auto _ : state) {
    y = y + 3 * rowHeight > height ? 0 : y + 3 * rowHeight;
    list.window->contentView()->setBoundsOrigin({0, y});
    list.host->settle();
    ++notches;
  }
  most = std::max(most, list.megabytes());
  state.counters["bitmaps MB"] = most;
  state.counters["memory MB"] = residentMegabytes() - before;
  state.counters["rows drawn"] = static_cast<double>(draws) / static_cast<double>(notches);
}
// In a process of its own for each (`--benchmark_filter=scroll/1000/`), else the second finds the memory that
// the first let go of.
BENCHMARK(scroll)->Arg(1000)->Arg(10000)->Iterations(200)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace bkuk
