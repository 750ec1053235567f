#include "BrenvikUIKit/text/XMLTagTable.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "BrenvikUIKit/text/CombiningMarks.h"

namespace bkuk {

namespace {

constexpr std::uint64_t classOf(char16_t unit) { return std::uint64_t{1} << (unit & 63); }

constexpr std::uint32_t hashed(std::uint32_t hash, char16_t unit) { return (hash ^ unit) * 0x9E3779B1u; }

constexpr std::uint32_t slotOf(std::uint32_t hash, std::size_t count) {
  return (hash ^ hash >> 15) & static_cast<std::uint32_t>(count - 1);
}

bool areEqual(std::u16string_view a, std::u16string_view b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

bool joinsAt(std::u16string_view text, std::size_t index) {
  return index < text.size() && !standsAlone(text[index]) && joinsCharacterBefore(text.substr(index));
}

}  // namespace

XMLTagTable::XMLTagTable(std::span<const NSString> names)
    : slots_(names.empty() ? 0 : std::bit_ceil(names.size() * 4)) {
  tags_.reserve(names.size() * 2);
  for (const auto& name : names) {
    add(name, false);
    add(name, true);
  }
}

void XMLTagTable::add(const NSString& name, bool isClosing) {
  NSString tag(isClosing ? "[/" : "[");
  tag.append(name.units());
  tag.append(u"]");
  const auto units = tag.units();
  std::uint32_t hash = 0;
  for (const char16_t unit : units.substr(1)) {
    hash = hashed(hash, unit);
    units_ |= classOf(unit);
  }
  longest_ = std::max(longest_, units.size());
  brackets_ = std::max(brackets_, static_cast<std::size_t>(std::ranges::count(units, u']')));
  std::size_t at = slotOf(hash, slots_.size());
  while (slots_[at].number != 0) {
    if (tags_[slots_[at].number - 1].tag == tag) return;  // the first of the list has the place
    at = (at + 1) & (slots_.size() - 1);
  }
  tags_.push_back({name, tag, units.size(), isClosing});
  slots_[at] = {hash, static_cast<std::uint32_t>(tags_.size())};
}

std::uint32_t XMLTagTable::number(std::uint32_t hash, std::u16string_view tag) const {
  for (std::size_t at = slotOf(hash, slots_.size());; at = (at + 1) & (slots_.size() - 1)) {
    const Slot& slot = slots_[at];
    if (slot.number == 0 || (slot.hash == hash && areEqual(tags_[slot.number - 1].tag.units(), tag)))
      return slot.number;
  }
}

const XMLTagTable::Tag* XMLTagTable::find(std::u16string_view text) const {
  if (tags_.empty() || joinsAt(text, 1)) return nullptr;
  const std::size_t end = std::min(text.size(), longest_);
  std::uint32_t first = 0;  // in the order of the list
  std::uint32_t hash = 0;
  std::size_t brackets = 0;
  for (std::size_t i = 1; i < end; ++i) {
    const char16_t unit = text[i];
    if ((units_ & classOf(unit)) == 0) break;
    hash = hashed(hash, unit);
    if (unit != u']') continue;
    const std::uint32_t found = number(hash, text.substr(0, i + 1));
    if (found != 0 && (first == 0 || found < first) && !joinsAt(text, i + 1)) first = found;
    if (++brackets == brackets_) break;
  }
  return first == 0 ? nullptr : &tags_[first - 1];
}

}  // namespace bkuk
