#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "bench/peer/common/Clock.h"

namespace peer {

/// What a workload found out: the cost of `count` equal things, once or several times.
struct Result {
  int count = 1;
  std::vector<Cost> costs;
  double bytes = 0;  ///< of memory for each of the things, 0 when nobody looked
};

/// Runs in a process of its own. Throws `std::runtime_error` when what it measures did not happen.
using Workload = std::function<Result()>;
using Workloads = std::map<std::string, Workload>;

/// The whole of a peer's `main`. With the name of a workload it prints one line of JSON: the median times of
/// one thing in nanoseconds, and its bytes. Without one it prints the names. With the environment variable
/// `PEER_HEAP` so many MiB of heap are touched first.
int runWorkload(int argc, char** argv, const Workloads& workloads);

/// Ends the workload `startup`: prints the time on the wall and leaves.
[[noreturn]] void exitAtFirstFrame();

}  // namespace peer
