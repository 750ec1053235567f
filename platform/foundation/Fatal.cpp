#include "platform/foundation/Fatal.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace bkuk {

namespace {

FatalHandler currentHandler = nullptr;

std::string describe(std::string_view message, std::string_view unit, int line) {
  std::string text = "Fatal error: ";
  if (!message.empty() && message != "Fatal error") text.append(message).append(": ");
  text.append("file ").append(unit);
  if (line != 0) text.append(", line ").append(std::to_string(line));
  return text;
}

[[noreturn]] void stop(std::string_view line) {
  if (currentHandler) currentHandler(line);
  std::abort();
}

}  // namespace

void fatal(std::string_view message, std::string_view unit, int line) {
  const std::string text = describe(message, unit, line);
  if (!currentHandler) std::fprintf(stderr, "%s\n", text.c_str());
  stop(text);
}

void reportMistake(std::string_view line) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

void trap(std::string_view mistake) {
  reportMistake(mistake);
  stop({});
}

FatalHandler setFatalHandler(FatalHandler handler) { return std::exchange(currentHandler, handler); }

}  // namespace bkuk
