#pragma once

// Instructions by operation, as Callgrind counts them: they do not vary with what else the machine does.
//
//     valgrind --tool=callgrind --collect-atstart=no --dump-instr=no PROGRAM
//
// Each count goes into a file of its own, with its name; outside of Callgrind nothing is counted.

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_DUMP_STATS_AT(name)
#endif

namespace bkuk {

template <typename Operation>
void countInstructions([[maybe_unused]] const char* name, Operation&& operation) {
  CALLGRIND_TOGGLE_COLLECT;
  operation();
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(name);
}

}  // namespace bkuk
