#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <vector>

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/GaussianBlur.h"

namespace bkuk {
namespace {

constexpr int width = 1000;
constexpr int height = 1000;

struct Page {
  host::Bitmap bitmap{{width, height}};
  Ref<CGContext> context = make<CGContext>(bitmap, CGAffineTransform{1, 0, 0, -1, 0, height});
};

Ref<CGPath> wave() {
  auto path = make<CGMutablePath>();
  path->move({0, 500});
  for (int x = 0; x < width; x += 100) {
    path->addCurve({x + 100.0, 500}, {x + 40.0, 800}, {x + 60.0, 200});
  }
  return path;
}

void fillRectangle(benchmark::State& state) {
  const Page page;
  for (auto _ : state) page.context->fill({100, 100, 120, 32});
}
BENCHMARK(fillRectangle);

void fillRoundedRectangle(benchmark::State& state) {
  const Page page;
  for (auto _ : state) {
    page.context->addRoundedRect({100, 100, 120, 32}, 6, 6);
    page.context->fillPath();
  }
}
BENCHMARK(fillRoundedRectangle);

void fillRoundedRectangleWithShadow(benchmark::State& state) {
  const Page page;
  page.context->setShadow({0, -3}, 20, CGColor::black());
  for (auto _ : state) {
    page.context->addRoundedRect({100, 100, 200, 100}, 6, 6);
    page.context->fillPath();
  }
}
BENCHMARK(fillRoundedRectangleWithShadow);

void saveTransformAndRestore(benchmark::State& state) {
  const Page page;
  for (auto _ : state) {
    page.context->saveGState();
    page.context->translateBy(1, 1);
    page.context->restoreGState();
  }
}
BENCHMARK(saveTransformAndRestore);

void strokeDashedWave(benchmark::State& state) {
  const Page page;
  const auto path = wave();
  page.context->setLineDash(0, std::array{6.0, 4.0});
  for (auto _ : state) {
    page.context->addPath(*path);
    page.context->strokePath();
  }
}
BENCHMARK(strokeDashedWave);

void dashWave(benchmark::State& state) {
  const auto path = wave();
  for (auto _ : state) benchmark::DoNotOptimize(path->copyDashingWithPhase(0, std::array{6.0, 4.0}));
}
BENCHMARK(dashWave);

void measureWave(benchmark::State& state) {
  const auto path = wave();
  for (auto _ : state) benchmark::DoNotOptimize(path->length());
}
BENCHMARK(measureWave);

void hitTestWave(benchmark::State& state) {
  const auto path = wave();
  for (auto _ : state) benchmark::DoNotOptimize(path->contains({430, 510}));
}
BENCHMARK(hitTestWave);

// A box of 200 by 100 pixels with the margin that its shadow needs.
void blurPlane(benchmark::State& state) {
  const double sigma = static_cast<double>(state.range(0));
  const int planeWidth = 200 + 2 * blurReach(sigma);
  const int planeHeight = 100 + 2 * blurReach(sigma);
  std::vector<std::uint8_t> plane(
      static_cast<std::size_t>(planeWidth) * static_cast<std::size_t>(planeHeight), 200);
  for (auto _ : state) gaussianBlur(plane, planeWidth, planeHeight, sigma);
}
BENCHMARK(blurPlane)->Arg(2)->Arg(10)->Arg(40);

void makeColor(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CGColor::srgb(0.2, 0.4, 0.6));
}
BENCHMARK(makeColor);

}  // namespace
}  // namespace bkuk
