#pragma once

#include <string>
#include <string_view>

namespace bkuk {

/// The one copy of `text` that the process keeps, so that equal texts have the same address. Callable from
/// any thread.
[[nodiscard]] const std::string& interned(std::string_view text);

}  // namespace bkuk
