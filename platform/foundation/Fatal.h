#pragma once

#include <string_view>
#include <utility>

namespace bkuk {

/// Stops the process because of a programming error: writes
/// `Fatal error: <message>: file <unit>, line <line>` to the standard error stream and aborts. An empty
/// message, and "Fatal error" itself, leave out its part, a line of 0 its own. `unit` is the source unit
/// without extension that the documented text of the failure names.
[[noreturn]] void fatal(std::string_view message, std::string_view unit, int line = __builtin_LINE());

/// Writes one line to the standard error stream about a mistake of the application: where it is, what is
/// missing or wrong, and what to call instead.
void reportMistake(std::string_view line);

/// Stops the process where no message belongs to the stop: overflow, a value out of range, a missing
/// mandatory object. `mistake` is reported before.
[[noreturn]] void trap(std::string_view mistake);

/// `value`, an object or a callback, which must be there: an absent one is a `trap` with that mistake.
/// Whoever keeps a callback for later asks when it is given, so that the stop is where the mistake was made.
template <typename Value>
Value&& required(Value&& value, std::string_view mistake) {
  if (!value) trap(mistake);
  return std::forward<Value>(value);
}

/// Hears of a fatal stop before the process would abort, with the line that would be printed, or an
/// empty one for `trap`. It may throw, which then takes the place of the stop; when it returns, the
/// process aborts.
using FatalHandler = void (*)(std::string_view line);

/// Replaces the handler and answers the one before. For tests only.
FatalHandler setFatalHandler(FatalHandler handler);

}  // namespace bkuk
