#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/RangeFinder.h"

namespace bkuk {
namespace {

using Styles = BKUKAttributedTextXMLConstructor::Styles;

NSAttributeDictionary style(int number) { return {{NSKernAttributeName, number}}; }

/// The names are awkward on purpose: one is empty, one holds tags, one looks like a closing tag.
Styles styles() {
  return {{"", style(1)}, {"b", style(2)}, {"/b", style(3)}, {"b][i", style(4)}, {"i", style(5)}};
}

NSString unitsOf(const std::uint8_t* data, std::size_t size) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < size; i += 2) units += static_cast<char16_t>(data[i] | data[i + 1] << 8);
  return NSString(units);
}

void require(bool holds) {
  if (!holds) __builtin_trap();
}

/// Both readers agree, nothing is made up, and every run has a style.
void read(const NSString& text) {
  std::vector<NSString> names;
  for (const auto& [name, attributes] : styles()) names.emplace_back(name);
  const auto built = BKUKAttributedTextXMLFactory::createAttributedText(text, styles(), style(0));
  const auto ranges = RangeFinder::ranges(text, names);
  require((built != nullptr) == ranges.has_value());
  if (!built) return;
  require(built->length() <= text.length());
  for (const auto& [name, range] : *ranges) require(NSMaxRange(range) <= built->length());
  std::size_t covered = 0;
  built->enumerateAttributes({0, built->length()}, {}, [&](const auto& attributes, NSRange range, bool&) {
    require(range.location == covered && range.length > 0 && attributes.count() == 1);
    covered = NSMaxRange(range);
  });
  require(covered == built->length());
}

}  // namespace
}  // namespace bkuk

/// The bytes are read twice: as UTF-8, valid or not, and as units, paired or not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace bkuk;
  read(NSString(std::string_view(reinterpret_cast<const char*>(data), size)));
  read(unitsOf(data, size));
  return 0;
}
