#pragma once

#include <optional>
#include <string>

namespace bkuk {

/// The user's preferred language ("zh", in lower case) and region ("CN", as written), of the tag
/// "zh-Hans-CN".
struct BKUKLanguageIdentifier {
  std::optional<std::string> language{};
  std::optional<std::string> region{};

  bool operator==(const BKUKLanguageIdentifier&) const = default;
};

/// The first language of the user's list, read afresh at each call: the first piece of its tag, and the last
/// when there are several. Both are absent when there is no list, or it begins with nothing but hyphens.
[[nodiscard]] BKUKLanguageIdentifier BKUKCurrentLanguageIdentifier();

}  // namespace bkuk
