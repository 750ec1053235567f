#include <benchmark/benchmark.h>
#include <vector>

#include "platform/foundation/NSNotificationCenter.h"

namespace bkuk {
namespace {

void postToObservers(benchmark::State& state) {
  const auto center = make<NSNotificationCenter>();
  std::vector<Ref<NSObject>> tokens;
  std::int64_t heard = 0;
  for (auto count = state.range(0); count > 0; --count)
    tokens.push_back(center->addObserver("changed", nullptr, nullptr, [&](NSNotification&) { ++heard; }));
  for (auto _ : state) center->post("changed");
  if (heard != state.range(0) * static_cast<std::int64_t>(state.iterations()))
    state.SkipWithError("not every observer heard every post");
}
BENCHMARK(postToObservers)->Arg(0)->Arg(1)->Arg(10)->Arg(100);

}  // namespace
}  // namespace bkuk
