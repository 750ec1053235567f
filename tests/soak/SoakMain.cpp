// Plays a busy scene over and over and fails unless what the process holds stays on a plateau:
//
//   soak [MINUTES [SEED]]
//
// Without a time it plays a few dozen rounds, which is enough to see whatever every round leaves behind. The
// scene's own clock is moved by hand, so no round waits.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "testing/LiveObjectBaseline.h"
#include "tests/soak/Scene.h"
#include "tests/soak/Usage.h"

namespace bkuk::soak {
namespace {

constexpr int shortRun = 40;

using Clock = std::chrono::steady_clock;

// For what is not the scene's: the allocator's and the standard library's own blocks.
constexpr std::size_t slack = 32 * 1024;

// How far a run has come, from 0 to 1.
using Progress = std::function<double(int round)>;

Progress byRounds(int count) {
  return [count](int round) { return double(round) / count; };
}

Progress byTime(double minutes) {
  return [minutes, start = Clock::now()](int) {
    return std::chrono::duration<double>(Clock::now() - start).count() / (60 * minutes);
  };
}

void print(const char* when, const Usage& usage) {
  std::printf("%-22s %10zu bytes  %6zu objects  %4zu descriptors  %4zu names\n", when, usage.bytes,
              usage.objects, usage.descriptors, usage.names);
}

bool isPlateau(const Usage& before, const Usage& after, const LiveObjectBaseline& baseline) {
  const auto growth = baseline.growth();
  if (!growth.empty()) std::printf("objects left: %s\n", growth.c_str());
  return growth.empty() && after.bytes <= before.bytes + slack && after.descriptors <= before.descriptors &&
         after.names <= before.names;
}

// Caches fill in the first part of the run. Of the second and the last part the least counts, so that what a
// cache happens to hold does not.
int run(std::uint32_t seed, const Progress& progress) {
  constexpr double warm = 0.4;
  constexpr double late = 0.7;
  const LiveObjectBaseline counting;
  Scene scene(seed);
  int round = 0;
  for (; progress(round) < warm; ++round) scene.playRound();
  const LiveObjectBaseline baseline;
  Usage before = Usage::now();
  for (; progress(round) < late; ++round) {
    scene.playRound();
    before = before.atMost(Usage::now());
  }
  Usage after = Usage::now();
  for (; progress(round) < 1; ++round) {
    scene.playRound();
    after = after.atMost(Usage::now());
  }
  std::printf("%d rounds, seed %u\n", round, seed);
  print("least before the middle", before);
  print("least after it", after);
  if (isPlateau(before, after, baseline)) return 0;
  std::puts("soak: what the process holds grows from round to round");
  return 1;
}

}  // namespace
}  // namespace bkuk::soak

int main(int count, char** words) {
  using namespace bkuk::soak;
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const double minutes = count > 1 ? std::atof(words[1]) : 0;
  const auto seed = count > 2 ? static_cast<std::uint32_t>(std::atoi(words[2])) : 1;
  return run(seed, minutes > 0 ? byTime(minutes) : byRounds(shortRun));
}
