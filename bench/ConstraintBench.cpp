#include <benchmark/benchmark.h>
#include <malloc.h>
#include <vector>

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSLayoutGuide.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/NSWindow.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

double bytesInUse() { return static_cast<double>(mallinfo2().uordblks); }

class SizedView : public NSView {
 public:
  explicit SizedView(NSSize size) : size_(size) { setTranslatesAutoresizingMaskIntoConstraints(false); }
  NSSize intrinsicContentSize() const override { return size_; }

 private:
  NSSize size_;
};

enum class Inside { nothing, constraints };

/// A check box with a title: two views in one, which twelve constraints place.
class TitledBox : public NSView {
 public:
  explicit TitledBox(Inside inside, double titleWidth = 60) : inside_(inside), titleWidth_(titleWidth) {
    setTranslatesAutoresizingMaskIntoConstraints(false);
  }

 protected:
  void didInit() override {
    NSView::didInit();
    const auto mark = make<SizedView>(NSSize(18, 18));
    const auto title = make<SizedView>(NSSize(titleWidth_, 17));
    addSubview(mark);
    addSubview(title);
    if (inside_ == Inside::nothing) return;
    const auto low = title->bottomAnchor()->constraintEqualTo(bottomAnchor());
    low->setPriority(NSLayoutPriorityDefaultLow);
    const Ref<NSLayoutConstraint> all[] = {
        mark->widthAnchor()->constraintEqualToConstant(18),
        mark->heightAnchor()->constraintEqualToConstant(18),
        mark->leadingAnchor()->constraintEqualTo(leadingAnchor()),
        title->leadingAnchor()->constraintEqualTo(mark->trailingAnchor(), 4),
        title->trailingAnchor()->constraintEqualTo(trailingAnchor()),
        mark->centerYAnchor()->constraintEqualTo(title->centerYAnchor()),
        mark->topAnchor()->constraintGreaterThanOrEqualTo(topAnchor()),
        mark->bottomAnchor()->constraintLessThanOrEqualTo(bottomAnchor()),
        title->topAnchor()->constraintGreaterThanOrEqualTo(topAnchor()),
        title->bottomAnchor()->constraintLessThanOrEqualTo(bottomAnchor()),
        title->topAnchor()->constraintEqualTo(topAnchor()),
        low,
    };
    NSLayoutConstraint::activateConstraints(all);
  }

 private:
  Inside inside_;
  double titleWidth_;
};

constexpr int columnCount = 20;

/// Guides of one size as columns and as rows; a view lies in its column and on its row.
class Grid {
 public:
  Grid(NSView& content, int rows) : content_(content) {
    for (int i = 0; i < columnCount; ++i) {
      const auto& guide = addGuide(columns_);
      use(i == 0
              ? guide->leadingAnchor()->constraintEqualTo(content.leadingAnchor(), 8)
              : guide->leadingAnchor()->constraintEqualTo(columns_[columns_.size() - 2]->trailingAnchor()));
      if (i > 0) use(guide->widthAnchor()->constraintEqualTo(columns_[0]->widthAnchor()));
    }
    use(columns_.back()->trailingAnchor()->constraintEqualTo(content.trailingAnchor(), -8));
    for (int i = 0; i < rows; ++i) {
      const auto& guide = addGuide(rows_);
      use(i == 0 ? guide->topAnchor()->constraintEqualTo(content.topAnchor(), 8)
                 : guide->topAnchor()->constraintEqualTo(rows_[rows_.size() - 2]->bottomAnchor()));
      if (i > 0) use(guide->heightAnchor()->constraintEqualTo(rows_[0]->heightAnchor()));
    }
    use(rows_.back()->bottomAnchor()->constraintEqualTo(content.bottomAnchor(), -8));
  }
  void add(const Ref<NSView>& view, int index) {
    const auto& column = columns_[static_cast<std::size_t>(index % columnCount)];
    const auto& row = rows_[static_cast<std::size_t>(index / columnCount)];
    content_.addSubview(view);
    use(view->leadingAnchor()->constraintEqualTo(column->leadingAnchor()));
    use(view->trailingAnchor()->constraintEqualTo(column->trailingAnchor()));
    use(view->centerYAnchor()->constraintEqualTo(row->centerYAnchor()));
  }
  void activate() { NSLayoutConstraint::activateConstraints(constraints_); }

 private:
  using Guides = std::vector<Ref<NSLayoutGuide>>;

  const Ref<NSLayoutGuide>& addGuide(Guides& guides) {
    guides.push_back(make<NSLayoutGuide>());
    content_.addLayoutGuide(guides.back());
    return guides.back();
  }
  void use(Ref<NSLayoutConstraint> constraint) { constraints_.push_back(std::move(constraint)); }

  NSView& content_;
  Guides columns_, rows_;
  std::vector<Ref<NSLayoutConstraint>> constraints_;
};

// Each scene that is counted is a function of its own, so that callgrind can be told its name.

[[gnu::noinline]] void sceneCreate(NSView& parent, Inside inside, int count) {
  for (int i = 0; i < count; ++i) parent.addSubview(make<TitledBox>(inside));
}

[[gnu::noinline]] void sceneLayOut(NSWindow& window) { window.layoutIfNeeded(); }

[[gnu::noinline]] void sceneChange(NSLayoutConstraint& constraint, NSWindow& window) {
  constraint.setConstant(constraint.constant() == 5 ? 6 : 5);
  window.layoutIfNeeded();
}

void create(benchmark::State& state, Inside inside) {
  const VirtualHostScope host;
  constexpr int count = 1000;
  double bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto parent = make<NSView>();
    const double before = bytesInUse();
    state.ResumeTiming();
    sceneCreate(*parent, inside, count);
    state.PauseTiming();
    bytes = (bytesInUse() - before) / count;
    parent = nullptr;
    state.ResumeTiming();
  }
  state.counters["bytes"] = bytes;
  state.SetItemsProcessed(state.iterations() * count);
}
void createWithConstraints(benchmark::State& state) { create(state, Inside::constraints); }
BENCHMARK(createWithConstraints);
void createWithout(benchmark::State& state) { create(state, Inside::nothing); }
BENCHMARK(createWithout);

template <typename MakeView>
void layOutGrid(benchmark::State& state, MakeView&& makeView) {
  const VirtualHostScope host;
  const int count = static_cast<int>(state.range(0));
  double bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const auto window = make<NSWindow>(NSRect(0, 0, 1920, 1080));
    Grid grid(*window->contentView(), (count + columnCount - 1) / columnCount);
    for (int i = 0; i < count; ++i) grid.add(makeView(i), i);
    grid.activate();
    const double before = bytesInUse();
    state.ResumeTiming();
    sceneLayOut(*window);
    state.PauseTiming();
    bytes = (bytesInUse() - before) / count;
    window->close();
    state.ResumeTiming();
  }
  state.counters["bytes"] = bytes;
  state.SetItemsProcessed(state.iterations() * count);
}

/// The first layout of a window: boxes, labels and bars in equal parts.
void layOutControls(benchmark::State& state) {
  layOutGrid(state, [](int i) -> Ref<NSView> {
    if (i % 2 == 0) return make<TitledBox>(Inside::constraints, 40 + i % 17);
    return i % 4 == 1 ? make<SizedView>(NSSize(30 + i % 13, 17)) : make<SizedView>(NSSize(-1, 6));
  });
}
BENCHMARK(layOutControls)->Arg(1'000)->Unit(benchmark::kMicrosecond);

void layOutLabels(benchmark::State& state) {
  layOutGrid(state, [](int i) { return make<SizedView>(NSSize(30 + i % 13, 17)); });
}
BENCHMARK(layOutLabels)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

/// One of many views beside each other, each with a place and a size of its own.
void changeConstant(benchmark::State& state) {
  const VirtualHostScope host;
  const int count = static_cast<int>(state.range(0));
  const auto window = make<NSWindow>(NSRect(0, 0, 1920, 1080));
  NSView& content = *window->contentView();
  Ref<NSLayoutConstraint> changed;
  for (int i = 0; i < count; ++i) {
    const auto view = make<SizedView>(NSSize(40, 17));
    content.addSubview(view);
    const auto left = view->leftAnchor()->constraintEqualTo(content.leftAnchor(), i % 100);
    left->setActive(true);
    view->topAnchor()->constraintEqualTo(content.topAnchor(), i / 100)->setActive(true);
    if (i == count / 2) changed = left;
  }
  window->layoutIfNeeded();
  for (auto _ : state) sceneChange(*changed, *window);
  window->close();
}
BENCHMARK(changeConstant)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Iterations(200);

}  // namespace
}  // namespace bkuk
