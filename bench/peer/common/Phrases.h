#pragma once

#include <string>
#include <vector>

namespace peer {

[[nodiscard]] const char* word(unsigned index);

/// Texts as menus and forms have them, 15 to 18 letters each, no two alike though their words repeat.
[[nodiscard]] std::vector<std::string> phrases(int count);

}  // namespace peer
