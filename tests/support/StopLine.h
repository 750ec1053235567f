#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/Fatal.h"

namespace bkuk {

/// Runs `code` and answers the line with which it stops the process, empty for a trap, or nothing when it
/// does not stop.
template <typename Code>
std::optional<std::string> stopLine(Code code) {
  struct Stop {
    std::string line;
  };
  const FatalHandler before = setFatalHandler([](std::string_view line) { throw Stop{std::string(line)}; });
  std::optional<std::string> stopped;
  try {
    code();
  } catch (const Stop& stop) {
    stopped = stop.line;
  }
  setFatalHandler(before);
  return stopped;
}

}  // namespace bkuk
