#include "bench/peer/common/Phrases.h"

#include <array>
#include <string_view>

namespace peer {

namespace {

std::string joined(std::string_view first, std::string_view second, std::string_view third) {
  std::string text(first);
  for (const auto next : {second, third}) text.append(1, ' ').append(next);
  return text;
}

}  // namespace

const char* word(unsigned index) {
  static constexpr std::array words{"border", "button", "change", "corner", "create", "detail",
                                    "device", "folder", "import", "launch", "margin", "number",
                                    "reload", "search", "select", "window"};
  return words[index % words.size()];
}

std::vector<std::string> phrases(int count) {
  std::vector<std::string> texts;
  for (unsigned i = 0; i < static_cast<unsigned>(count); ++i)
    texts.push_back(joined(word(i), word(i / 16 * 7 + 3), std::to_string(i)));
  return texts;
}

}  // namespace peer
