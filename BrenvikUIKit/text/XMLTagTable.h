#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "BrenvikUIKit/text/BKUKSimpleXMLParser.h"

namespace bkuk {

/// The tags that a parser knows, found by their text in a time that does not depend on how many there are.
class XMLTagTable {
 public:
  using Tag = BKUKSimpleXMLParser::XMLTag;

  explicit XMLTagTable(std::span<const NSString> names);

  /// The first tag of the list that stands at the front of `text`, null for none. `text` begins with a
  /// bracket.
  [[nodiscard]] const Tag* find(std::u16string_view text) const;

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t number = 0;  // of the tag, counted from 1; 0 for a free slot
  };

  void add(const NSString& name, bool isClosing);
  [[nodiscard]] std::uint32_t number(std::uint32_t hash, std::u16string_view tag) const;

  std::vector<Tag> tags_;    // in order of the list
  std::vector<Slot> slots_;  // a power of two of them, at least half free
  std::uint64_t units_ = 0;  // which of 64 classes of units occur in names
  std::size_t longest_ = 0;
  std::size_t brackets_ = 1;  // the most closing brackets in one tag
};

}  // namespace bkuk
