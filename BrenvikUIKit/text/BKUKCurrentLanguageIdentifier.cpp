#include "BrenvikUIKit/text/BKUKCurrentLanguageIdentifier.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/foundation/NSUserDefaults.h"

namespace bkuk {

namespace {

std::vector<std::string> piecesOf(std::string_view tag) {
  std::vector<std::string> pieces;
  while (!tag.empty()) {
    const auto piece = tag.substr(0, tag.find('-'));
    if (!piece.empty()) pieces.emplace_back(piece);
    tag.remove_prefix(std::min(tag.size(), piece.size() + 1));
  }
  return pieces;
}

std::string lowerCased(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

}  // namespace

BKUKLanguageIdentifier BKUKCurrentLanguageIdentifier() {
  const auto languages = NSUserDefaults::standard().stringArray("AppleLanguages");
  if (!languages || languages->empty()) return {};
  const auto pieces = piecesOf(languages->front());
  if (pieces.empty()) return {};
  BKUKLanguageIdentifier identifier{lowerCased(pieces.front()), {}};
  if (pieces.size() > 1) identifier.region = pieces.back();
  return identifier;
}

}  // namespace bkuk
