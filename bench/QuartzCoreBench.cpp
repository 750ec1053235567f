#include <benchmark/benchmark.h>
#include <vector>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CARenderer.h"
#include "platform/quartzcore/CATransaction.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr int width = 1280;
constexpr int height = 3440;
constexpr int shadowsHeight = 2000;
constexpr int boxCount = 1000;
constexpr CGSize boxSize{120, 32};

CGRect boxFrame(int index) {
  return {index % 10 * 126.0 + 3, index / 10 * 34.0 + 4, boxSize.width, boxSize.height};
}

struct Window {
  explicit Window(int height) {
    root->setFrame({0, 0, width, static_cast<CGFloat>(height)});
    root->setBackgroundColor(CGColor::white());
    renderer.setSize({width, height}, 1);
    renderer.setLayer(root);
  }

  void update() {
    CATransaction::flush();
    benchmark::DoNotOptimize(renderer.render());
  }
  void updateAll() {
    renderer.setNeedsRenderAll();
    update();
  }

  VirtualHostScope host;
  Ref<CALayer> root = make<CALayer>();
  CARenderer renderer;
};

// A fill and a border of one point with corners of six.
std::vector<Ref<CALayer>> addBoxes(Window& window) {
  std::vector<Ref<CALayer>> boxes;
  for (int i = 0; i < boxCount; ++i) {
    auto layer = make<CALayer>();
    layer->setFrame(boxFrame(i));
    layer->setBackgroundColor(CGColor::srgb(0.2, 0.4, 0.8));
    layer->setBorderWidth(1);
    layer->setBorderColor(CGColor::srgb(0.1, 0.2, 0.4));
    layer->setCornerRadius(6);
    window.root->addSublayer(layer);
    boxes.push_back(layer);
  }
  return boxes;
}

/// A frame that repaints all of 1,000 boxes.
void repaintBoxes(benchmark::State& state) {
  Window window(height);
  const auto boxes = addBoxes(window);
  for (auto _ : state) window.updateAll();
}
BENCHMARK(repaintBoxes)->Unit(benchmark::kMicrosecond);

/// The peer: the same boxes filled as paths.
void fillSameBoxesAsPaths(benchmark::State& state) {
  const VirtualHostScope host;
  host::Bitmap bitmap({width, height});
  const auto context = make<CGContext>(bitmap, CGAffineTransform{1, 0, 0, -1, 0, height});
  const auto fill = CGColor::srgb(0.2, 0.4, 0.8);
  const auto border = CGColor::srgb(0.1, 0.2, 0.4);
  for (auto _ : state) {
    bitmap.fill({0, 0, width, height}, 0xffffffff);
    for (int i = 0; i < boxCount; ++i) {
      const auto frame = boxFrame(i);
      context->setFillColor(fill);
      context->addRoundedRect(frame, 6, 6);
      context->fillPath();
      context->setFillColor(border);
      context->addRoundedRect(frame, 6, 6);
      context->addRoundedRect(frame.insetBy(1, 1), 5, 5);
      context->fillPath(CGPathFillRule::evenOdd);
    }
  }
}
BENCHMARK(fillSameBoxesAsPaths)->Unit(benchmark::kMicrosecond);

/// A frame in which one of 1,000 boxes changes its colour.
void repaintOneBox(benchmark::State& state) {
  Window window(height);
  const auto boxes = addBoxes(window);
  window.update();
  const std::vector colors{CGColor::white(), CGColor::black()};
  std::size_t frame = 0;
  CATransaction::setDisableActions(true);
  for (auto _ : state) {
    CATransaction::begin();
    CATransaction::setDisableActions(true);
    boxes[500]->setBackgroundColor(colors[++frame % 2]);
    CATransaction::commit();
    window.update();
  }
}
BENCHMARK(repaintOneBox)->Unit(benchmark::kMicrosecond);

/// What a window costs that stands still.
void repaintNothing(benchmark::State& state) {
  Window window(height);
  const auto boxes = addBoxes(window);
  window.update();
  for (auto _ : state) window.update();
}
BENCHMARK(repaintNothing)->Unit(benchmark::kNanosecond);

// Cards of 200 × 100 in a grid, with shadows of radius 20, which reach 60 pixels beyond them.
std::vector<Ref<CALayer>> addShadows(Window& window, double opacity = 0.4) {
  std::vector<Ref<CALayer>> layers;
  for (int i = 0; i < 100; ++i) {
    auto layer = make<CALayer>();
    layer->setFrame({i % 6 * 210.0 + 10, i / 6 * 110.0 + 60, 200, 100});
    layer->setBackgroundColor(CGColor::white());
    layer->setCornerRadius(6);
    layer->setShadowOpacity(opacity);
    layer->setShadowRadius(20);
    window.root->addSublayer(layer);
    layers.push_back(layer);
  }
  return layers;
}

/// A frame with 100 shadows none of which was painted before, each of a radius of its own.
void paintNewShadows(benchmark::State& state) {
  Window window(shadowsHeight);
  const auto layers = addShadows(window);
  // Of all runs together: masks are kept from one to the next.
  static double radius = 20;
  for (auto _ : state) {
    CATransaction::begin();
    CATransaction::setDisableActions(true);
    for (const auto& layer : layers) layer->setShadowRadius(radius += 1e-6);
    CATransaction::commit();
    window.updateAll();
  }
}
BENCHMARK(paintNewShadows)->Unit(benchmark::kMillisecond);

/// The frame after it.
void paintSameShadows(benchmark::State& state) {
  Window window(shadowsHeight);
  const auto layers = addShadows(window);
  window.update();
  for (auto _ : state) window.updateAll();
}
BENCHMARK(paintSameShadows)->Unit(benchmark::kMillisecond);

/// The same boxes without shadows: what is left of a frame.
void paintBoxesWithoutShadows(benchmark::State& state) {
  Window window(shadowsHeight);
  const auto layers = addShadows(window, 0);
  window.update();
  for (auto _ : state) window.updateAll();
}
BENCHMARK(paintBoxesWithoutShadows)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bkuk
