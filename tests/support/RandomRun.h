#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace bkuk {

/// The choices of one random run, the same for the same seed everywhere. BKUK_RANDOM_SEED and
/// BKUK_RANDOM_STEPS in the environment replace the fixed seeds and the length of a run.
class RandomRun {
 public:
  explicit RandomRun(unsigned seed) : engine_(seed) {}

  [[nodiscard]] static std::vector<unsigned> seeds(std::vector<unsigned> fixed) {
    const char* own = std::getenv("BKUK_RANDOM_SEED");
    return own ? std::vector{static_cast<unsigned>(std::stoul(own))} : fixed;
  }
  [[nodiscard]] static int steps(int usual) {
    const char* own = std::getenv("BKUK_RANDOM_STEPS");
    return own ? std::stoi(own) : usual;
  }

  /// A number from 0 to `count` - 1.
  [[nodiscard]] int below(int count) {
    return static_cast<int>(engine_() % static_cast<std::mt19937::result_type>(count));
  }
  [[nodiscard]] bool once(int in) { return below(in) == 0; }
  [[nodiscard]] double between(double low, double high) {
    return low + (high - low) * static_cast<double>(engine_()) / std::mt19937::max();
  }
  template <typename T>
  [[nodiscard]] const T& from(const std::vector<T>& values) {
    return values[static_cast<std::size_t>(below(static_cast<int>(values.size())))];
  }

 private:
  std::mt19937 engine_;
};

}  // namespace bkuk
