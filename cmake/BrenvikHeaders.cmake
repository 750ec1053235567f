# Precompiled headers: what most sources include of the standard library, read once for each kind of target
# instead of once for each source. Only headers from outside the house are in them, so that a change here
# compiles nothing that it does not concern; a source still includes what it uses.

set(BKUK_STANDARD_HEADERS
  <algorithm> <array> <cmath> <cstdint> <functional> <limits> <map> <memory> <optional> <span> <string>
  <string_view> <utility> <variant> <vector>)

# The libraries' objects are compiled for shared libraries and the programs' are not, and a precompiled
# header serves one of the two.
set(empty ${PROJECT_BINARY_DIR}/cmake/empty.cpp)
file(CONFIGURE OUTPUT ${empty} CONTENT "")
add_library(bkuk_standard_headers OBJECT ${empty})
target_precompile_headers(bkuk_standard_headers PRIVATE ${BKUK_STANDARD_HEADERS})
