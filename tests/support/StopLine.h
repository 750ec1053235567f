#pragma once

#include <gtest/gtest.h>
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

/// The line on the standard error stream before the trap into which `code` runs; nothing when there is none.
template <typename Code>
std::string mistakeOf(Code code) {
  testing::internal::CaptureStderr();
  const auto stopped = stopLine(code);
  const std::string said = testing::internal::GetCapturedStderr();
  return stopped == "" ? said : std::string();
}

}  // namespace bkuk
