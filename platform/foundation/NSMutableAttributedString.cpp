#include "platform/foundation/NSMutableAttributedString.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace bkuk {

void NSMutableAttributedString::didEdit(Edited, NSRange, std::ptrdiff_t) {}

NSAttributeDictionary NSMutableAttributedString::attributesForReplacement(NSRange range) const {
  if (length() == 0) return {};
  if (range.length > 0 || range.location == 0) return attributes(range.location);
  return attributes(range.location - 1);
}

void NSMutableAttributedString::replace(NSRange range, std::u16string_view units,
                                        std::span<const Piece> pieces) {
  string_.replaceCharacters(range, units);
  runs_.replace(range, pieces);
  const auto change = static_cast<std::ptrdiff_t>(units.size()) - static_cast<std::ptrdiff_t>(range.length);
  didEdit(Edited::characters, {range.location, units.size()}, change);
}

void NSMutableAttributedString::replaceCharacters(NSRange in, const NSString& with) {
  check(in);
  const Piece piece{with.length(), attributesForReplacement(in)};
  replace(in, with.units(), {&piece, 1});
}

void NSMutableAttributedString::replaceCharacters(NSRange in, const NSAttributedString& with) {
  check(in);
  const std::size_t added = with.length();
  const auto pieces = with.runs_.pieces({0, added});
  replace(in, with.string().units(), pieces);
}

void NSMutableAttributedString::append(std::u16string_view units, const NSAttributeDictionary& attributes) {
  const NSRange range{length(), units.size()};
  string_.append(units);
  runs_.append(range.length, attributes);
  didEdit(Edited::characters, range, static_cast<std::ptrdiff_t>(range.length));
}

void NSMutableAttributedString::reserve(std::size_t length) { string_.reserve(length); }

template <typename Change>
void NSMutableAttributedString::changeAttributes(NSRange range, Change change) {
  check(range);
  if (range.length == 0) return;
  auto pieces = runs_.pieces(range);
  // Stretches that shared a dictionary before share one afterwards.
  std::vector<std::pair<NSAttributeDictionary, NSAttributeDictionary>> recent;
  std::size_t oldest = 0;
  constexpr std::size_t remembered = 8;
  for (auto& piece : pieces) {
    const auto known =
        std::ranges::find_if(recent, [&](const auto& each) { return each.first.shares(piece.attributes); });
    if (known != recent.end()) {
      piece.attributes = known->second;
      continue;
    }
    const NSAttributeDictionary before = piece.attributes;
    change(piece.attributes);
    if (recent.size() < remembered) {
      recent.emplace_back(before, piece.attributes);
    } else {
      recent[oldest++ % remembered] = {before, piece.attributes};
    }
  }
  runs_.replace(range, pieces);
  didEdit(Edited::attributes, range, 0);
}

void NSMutableAttributedString::setAttributes(const NSAttributeDictionary& attributes, NSRange range) {
  check(range);
  if (range.length == 0) return;
  const Piece piece{range.length, attributes};
  runs_.replace(range, {&piece, 1});
  didEdit(Edited::attributes, range, 0);
}

void NSMutableAttributedString::addAttribute(const NSAttributedStringKey& key, const NSAttributeValue& value,
                                             NSRange range) {
  changeAttributes(range, [&](NSAttributeDictionary& attributes) { attributes.set(key, value); });
}

void NSMutableAttributedString::addAttributes(const NSAttributeDictionary& attributes, NSRange range) {
  changeAttributes(range, [&](NSAttributeDictionary& changed) { changed.merge(attributes); });
}

void NSMutableAttributedString::removeAttribute(const NSAttributedStringKey& key, NSRange range) {
  changeAttributes(range, [&](NSAttributeDictionary& attributes) { attributes.remove(key); });
}

}  // namespace bkuk
