#include <cstddef>
#include <cstdint>
#include <span>

#include "host/support/FontFile.h"

/// What was read as a face can be written as a file of its own, which holds the same face.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace bkuk::host;
  for (const auto& face : readFontFile(std::as_bytes(std::span(data, size)))) {
    const auto metrics = readMetrics(face.fontTables());
    if (!metrics || metrics->weight < 1 || metrics->weight > 1000) __builtin_trap();
    if (metrics->at(12).bounds.width < 0) __builtin_trap();
    (void)familyName(face.fontTables());
    const auto file = fileOfFace(face, "Family");
    const auto again = readFontFile(file);
    if (again.size() != 1 || again[0].postScriptName != face.postScriptName) __builtin_trap();
    if (familyName(again[0].fontTables()) != "Family") __builtin_trap();
  }
  return 0;
}
