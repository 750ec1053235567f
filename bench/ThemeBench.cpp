#include <benchmark/benchmark.h>

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/colour/BKUKThemedColor.h"

namespace bkuk {
namespace {

/// Answers every role with one colour that exists already, so that only the theme's own work is measured.
class OneColor : public BKUKThemeColorsProvider {
 public:
  explicit OneColor(Ref<NSColor> color) : color_(std::move(color)) {}
  [[nodiscard]] Ref<NSColor> color(BKUKThemeColorRole) const override { return color_; }

 private:
  const Ref<NSColor> color_;
};

Ref<NSColor> themed() { return make<BKUKThemedColor>(NSColor::white(), NSColor::black()); }

void installOneColor() { BKUKTheme::setDefault(make<OneColor>(NSColor::red())); }

void readRole(benchmark::State& state) {
  installOneColor();
  for (auto _ : state) benchmark::DoNotOptimize(NSColor::bkuk::accent());
}
BENCHMARK(readRole);

void readRoleBesideOverrides(benchmark::State& state) {
  installOneColor();
  BKUKTheme::overrides() = {{"brand", [] { return NSColor::blue(); }},
                            {"main", [] { return NSColor::green(); }}};
  for (auto _ : state) benchmark::DoNotOptimize(NSColor::bkuk::accent());
  BKUKTheme::overrides().clear();
}
BENCHMARK(readRoleBesideOverrides);

void resolveThemedColor(benchmark::State& state) {
  const auto color = themed();
  for (auto _ : state) benchmark::DoNotOptimize(color->alphaComponent());
}
BENCHMARK(resolveThemedColor);

/// What the resolution costs on top of: the same question to a colour that does not change.
void resolvePlainColor(benchmark::State& state) {
  const auto color = NSColor::white();
  for (auto _ : state) benchmark::DoNotOptimize(color->alphaComponent());
}
BENCHMARK(resolvePlainColor);

}  // namespace
}  // namespace bkuk
