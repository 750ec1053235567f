// Feeds recorded inputs to a fuzz target, for compilers without libFuzzer.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

void replay(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

std::size_t replayFolder(const fs::path& folder) {
  std::size_t count = 0;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    replay(entry.path());
    ++count;
  }
  return count;
}

}  // namespace

/// An empty corpus fails, so that a wrong folder is not mistaken for a pass.
int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int index = 1; index < argc; ++index) count += replayFolder(argv[index]);
  std::printf("%zu inputs replayed\n", count);
  return count == 0 ? 1 : 0;
}
