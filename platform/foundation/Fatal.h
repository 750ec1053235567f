#pragma once

#include <string_view>

namespace bkuk {

/// Stops the process because of a programming error: writes
/// `Fatal error: <message>: file <unit>, line <line>` to the standard error stream and aborts. An empty
/// message, and "Fatal error" itself, leave out its part, a line of 0 its own. `unit` is the source unit
/// without extension that the documented text of the failure names.
[[noreturn]] void fatal(std::string_view message, std::string_view unit, int line = __builtin_LINE());

/// Stops the process without a message: overflow, a value out of range, a missing mandatory object.
[[noreturn]] void trap();

/// Hears of a fatal stop before the process would abort, with the line that would be printed, or an
/// empty one for `trap`. It may throw, which then takes the place of the stop; when it returns, the
/// process aborts.
using FatalHandler = void (*)(std::string_view line);

/// Replaces the handler and answers the one before. For tests only.
FatalHandler setFatalHandler(FatalHandler handler);

}  // namespace bkuk
