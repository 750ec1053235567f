#include "bench/peer/common/Clock.h"

#include <cstdlib>
#include <time.h>

namespace peer {

namespace {

std::int64_t nanoseconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec;
}

int repetitionsAskedFor(int usual) {
  const char* asked = std::getenv("PEER_REPETITIONS");
  return asked ? std::atoi(asked) : usual;
}

}  // namespace

std::int64_t wallNanoseconds() { return nanoseconds(CLOCK_MONOTONIC); }

// Not inlined, for callgrind knows it by its name.
[[gnu::noinline]] void timed(const std::function<void()>& work) { work(); }

Cost costOf(const std::function<void()>& work) {
  const auto processor = nanoseconds(CLOCK_PROCESS_CPUTIME_ID);
  const auto wall = wallNanoseconds();
  timed(work);
  return {static_cast<double>(wallNanoseconds() - wall),
          static_cast<double>(nanoseconds(CLOCK_PROCESS_CPUTIME_ID) - processor)};
}

std::vector<Cost> costsOf(int repetitions, const std::function<void()>& work) {
  for (int i = 0; i < 3; ++i) work();
  std::vector<Cost> costs;
  for (int i = repetitionsAskedFor(repetitions); i > 0; --i) costs.push_back(costOf(work));
  return costs;
}

}  // namespace peer
