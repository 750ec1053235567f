// What one change costs among many siblings, in one flat container of as many views as the argument says.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <string>
#include <vector>

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/BKUKLabel.h"
#include "bench/InstructionCount.h"
#include "platform/appkit/NSImageView.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/coregraphics/CGColor.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr NSSize windowSize{1280, 800};
constexpr NSSize cell{60, 20};
constexpr int columns = 20;

NSRect place(int index) {
  return {index % columns * cell.width, index / columns * cell.height, cell.width - 2, cell.height - 2};
}

class Box : public BKUKStatefulView {
 public:
  using BKUKStatefulView::BKUKStatefulView;
  void updateLayer() override {
    BKUKStatefulView::updateLayer();
    layer()->setBackgroundColor(state() == States::hover ? CGColor::white() : CGColor::black());
  }
};

/// A check box as it will be: an image for its mark and a title, placed by arithmetic.
class TitledBox : public BKUKStatefulView {
 public:
  explicit TitledBox(std::string title) : title_(std::move(title)) {}
  void layout() override {
    BKUKStatefulView::layout();
    image_->setFrame({0, 1, 18, 18});
    label_->setFrame({22, 0, bounds().width() - 22, bounds().height()});
  }

 protected:
  void didInit() override {
    BKUKStatefulView::didInit();
    setTranslatesAutoresizingMaskIntoConstraints(true);
    setAccessibilityRole(NSAccessibilityCheckBoxRole);
    setAccessibilityLabel(title_);
    static const auto& style =
        *new BKUKFontSettings(NSColor::black(), 14, BKUKFontType::regular, NSTextAlignment::natural);
    static const auto& mark = *new Ref<NSImage>(make<NSImage>(CGSize{18, 18}));
    image_ = make<NSImageView>();
    label_ = BKUKLabel::label(title_, style);
    addSubview(image_);
    addSubview(label_);
    image_->setImage(mark);
  }

 private:
  std::string title_;
  Ref<NSImageView> image_;
  Ref<BKUKLabel> label_;
};

struct Container {
  explicit Container(int count) : name(std::to_string(count)) {
    window = make<BKUKWindow>(NSRect{0, 0, windowSize.width, windowSize.height}, NSWindowStyleMaskTitled);
    for (int i = 0; i < count; ++i) {
      boxes.push_back(make<Box>(place(i)));
      boxes.back()->setTranslatesAutoresizingMaskIntoConstraints(true);
      window->contentView()->addSubview(boxes.back());
    }
  }
  void show() {
    window->makeKeyAndOrderFront();
    host->settle();
  }
  ~Container() {
    if (window) window->close();
  }

  template <typename Operation>
  void count(const char* operation, Operation&& run) const {
    countInstructions((std::string(operation) + "/" + name).c_str(), run);
  }

  VirtualHostScope host;
  std::string name;
  Ref<BKUKWindow> window;
  std::vector<Ref<Box>> boxes;
};

void measured(benchmark::State& state, const Container& container, const char* name, auto&& operation) {
  for (auto _ : state) container.count(name, operation);
}

/// The pointer goes from one view to the next, to the pixels.
void hover(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  container.show();
  auto& pointer = *container.host->windows().front();
  int column = 0;
  pointer.movePointer({5, 105});
  measured(state, container, "hover", [&] {
    pointer.movePointer({5 + (++column % columns) * cell.width, 105});
  });
}

/// One view moves, to the pixels.
void moveOne(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  container.show();
  double x = 0;
  measured(state, container, "move", [&] {
    x = 1 - x;
    container.boxes[45]->setFrameOrigin({place(45).minX() + x, place(45).minY()});
    container.host->settle();
  });
}

/// One view asks for a layout, to the pixels.
void layoutOne(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  container.show();
  measured(state, container, "layout", [&] {
    container.boxes[45]->setNeedsLayout(true);
    container.host->settle();
  });
}

void changeLabel(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  const auto label = BKUKLabel::label("none");
  label->setFrame({100, 100, 100, 20});
  container.window->contentView()->addSubview(label);
  container.show();
  int number = 0;
  measured(state, container, "label", [&] {
    label->setStringValue("of " + std::to_string(++number % 10));
    container.host->settle();
  });
}

void changeConstant(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  const auto view = make<Box>();
  auto& content = *container.window->contentView();
  content.addSubview(view);
  const auto leading = view->leadingAnchor()->constraintEqualTo(content.leadingAnchor(), 10);
  const std::array all{leading, view->topAnchor()->constraintEqualTo(content.topAnchor(), 10),
                       view->widthAnchor()->constraintEqualToConstant(50),
                       view->heightAnchor()->constraintEqualToConstant(20)};
  NSLayoutConstraint::activateConstraints(all);
  container.show();
  int number = 0;
  measured(state, container, "constant", [&] {
    leading->setConstant(10 + ++number % 2);
    container.host->settle();
  });
}

/// One view comes, at the front, to the pixels; then it goes.
void addOne(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  container.show();
  const auto view = make<Box>(NSRect{200, 100, 30, 30});
  for (auto _ : state) {
    container.count("add", [&] {
      container.window->contentView()->addSubview(view);
      container.host->settle();
    });
    container.count("remove", [&] {
      view->removeFromSuperview();
      container.host->settle();
    });
  }
}

/// A press and its release on a view.
void click(benchmark::State& state) {
  Container container(static_cast<int>(state.range(0)));
  container.show();
  auto& pointer = *container.host->windows().front();
  pointer.movePointer({5, 105});
  measured(state, container, "click", [&] { pointer.click({5, 105}); });
}

/// The same on the innermost of as many views, each within the one before.
void clickDeep(benchmark::State& state) {
  Container container(0);
  Ref<NSView> view = container.window->contentView();
  for (int i = 0; i < state.range(0); ++i) {
    const auto inner = make<NSView>(NSRect{0, 0, 500, 500});
    view->addSubview(inner);
    view = inner;
  }
  const auto box = make<Box>(NSRect{0, 0, 100, 100});
  view->addSubview(box);
  container.show();
  container.name = std::to_string(state.range(0));
  auto& pointer = *container.host->windows().front();
  measured(state, container, "deep-click", [&] { pointer.click({5, windowSize.height - 5}); });
}

/// The keyboard enters a window that it has not been in.
void firstTab(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      Container container(static_cast<int>(state.range(0)));
      for (std::size_t i = 0; i < container.boxes.size(); ++i) {
        container.boxes[i]->setFrame({10, 20.0 * static_cast<double>(i), 100, 18});
      }
      container.show();
      state.ResumeTiming();
      container.count("tab", [&] { container.window->selectNextKeyView(); });
      container.count("second-tab", [&] { container.window->selectNextKeyView(); });
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
}

/// Views are made and added, are shown, and go with their window.
void live(benchmark::State& state) {
  for (auto _ : state) {
    Container container(0);
    container.name = std::to_string(state.range(0));
    container.count("build", [&] {
      for (int i = 0; i < state.range(0); ++i) {
        const auto box = make<Box>(place(i));
        container.window->contentView()->addSubview(box);
      }
    });
    container.count("show", [&] { container.show(); });
    container.window->close();
    container.count("destroy", [&] { container.window = nullptr; });
  }
}

/// Titled boxes are made and added to a window that is not shown yet.
void create(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  BKUKFontLoader::shared().registerFont({{BKUKFontType::regular, "Inter-Regular"}});
  double bytes = 0;
  for (auto _ : state) {
    Container container(0);
    container.window->contentView()->addSubview(make<TitledBox>("warm"));
    container.name = std::to_string(count);
    std::vector<std::string> titles;
    for (int i = 0; i < count; ++i) titles.push_back("Check box number " + std::to_string(i));
    const auto before = mallinfo2().uordblks;
    container.count("create", [&] {
      for (const auto& title : titles) container.window->contentView()->addSubview(make<TitledBox>(title));
    });
    bytes = static_cast<double>(mallinfo2().uordblks - before) / count;
  }
  state.counters["bytes"] = bytes;
  state.counters["sizeof(NSView)"] = sizeof(NSView);
  state.counters["sizeof(CALayer)"] = sizeof(CALayer);
  state.counters["sizeof(BKUKStatefulView)"] = sizeof(BKUKStatefulView);
  state.counters["sizeof(BKUKLabel)"] = sizeof(BKUKLabel);
}

/// One of as many observers takes itself back.
void removeObserver(benchmark::State& state) {
  VirtualHostScope host;
  const auto center = make<NSNotificationCenter>();
  std::vector<Ref<NSView>> observers;
  for (int i = 0; i < state.range(0); ++i) {
    observers.push_back(make<NSView>());
    center->addObserver(observers.back().get(), Selector("perform:"), NSNotificationName("name"));
  }
  std::size_t next = observers.size() / 2;
  for (auto _ : state) {
    countInstructions(("observer/" + std::to_string(state.range(0))).c_str(),
                      [&] { center->removeObserver(observers[next].get()); });
    if (++next == observers.size()) break;
  }
}

BENCHMARK(hover)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(moveOne)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(layoutOne)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(changeLabel)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(changeConstant)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(addOne)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(click)->RangeMultiplier(10)->Range(1000, 100000)->Iterations(8);
BENCHMARK(clickDeep)->RangeMultiplier(10)->Range(100, 10000)->Iterations(8);
BENCHMARK(firstTab)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond)->Iterations(1);
BENCHMARK(live)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(create)->Arg(10000)->Unit(benchmark::kMicrosecond)->Iterations(1);
BENCHMARK(removeObserver)->RangeMultiplier(10)->Range(10000, 1000000)->Iterations(20);

}  // namespace
}  // namespace bkuk
