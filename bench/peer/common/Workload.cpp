#include "bench/peer/common/Workload.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "bench/peer/common/Memory.h"

namespace peer {

namespace {

double median(const std::vector<Cost>& costs, double Cost::*clock) {
  std::vector<double> times;
  for (const auto& cost : costs) times.push_back(cost.*clock);
  std::sort(times.begin(), times.end());
  return (times[(times.size() - 1) / 2] + times[times.size() / 2]) / 2;
}

void print(const Result& result) {
  std::printf("{\"count\": %d, \"wall\": %.1f, \"processor\": %.1f, \"bytes\": %.0f}\n", result.count,
              median(result.costs, &Cost::wall) / result.count,
              median(result.costs, &Cost::processor) / result.count, result.bytes);
}

}  // namespace

int runWorkload(int argc, char** argv, const Workloads& workloads) {
  const auto found = argc > 1 ? workloads.find(argv[1]) : workloads.end();
  if (found == workloads.end()) {
    for (const auto& [name, workload] : workloads) std::puts(name.c_str());
    return argc > 1 ? 2 : 0;
  }
  if (const char* heap = std::getenv("PEER_HEAP")) touchHeap(static_cast<std::size_t>(std::atoi(heap)) << 20);
  try {
    print(found->second());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
    return 1;
  }
  return 0;
}

void exitAtFirstFrame() {
  std::printf("{\"firstFrame\": %lld}\n", static_cast<long long>(wallNanoseconds()));
  std::fflush(stdout);
  std::_Exit(0);
}

}  // namespace peer
