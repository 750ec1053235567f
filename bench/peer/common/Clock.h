#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace peer {

/// What something took, in nanoseconds: on the wall, and of the processor by all threads of the program.
struct Cost {
  double wall = 0;
  double processor = 0;
};

/// Of the clock that the whole machine shares, so that another program may subtract its own reading.
[[nodiscard]] std::int64_t wallNanoseconds();

/// Calls `work`, and nothing else: instructions are counted inside this function alone.
void timed(const std::function<void()>& work);

[[nodiscard]] Cost costOf(const std::function<void()>& work);

/// The costs of so many calls after three that do not count. The environment variable `PEER_REPETITIONS`
/// takes the place of `repetitions`.
[[nodiscard]] std::vector<Cost> costsOf(int repetitions, const std::function<void()>& work);

}  // namespace peer
