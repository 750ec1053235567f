#include <benchmark/benchmark.h>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Runs the gallery on the offscreen platform until its first frame is presented; its exit status.
int runUntilFirstFrame() {
  const char* arguments[] = {BKUK_GALLERY, "--exit-after-first-frame", nullptr};
  pid_t process = 0;
  if (posix_spawn(&process, BKUK_GALLERY, nullptr, nullptr, const_cast<char**>(arguments), environ) != 0)
    return -1;
  int status = 0;
  return waitpid(process, &status, 0) == process ? status : -1;
}

/// What a user waits for: from the start of the process to its first frame, and out again.
void startGallery(benchmark::State& state) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  for (auto _ : state)
    if (runUntilFirstFrame() != 0) state.SkipWithError("the gallery did not come up");
}
BENCHMARK(startGallery)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
