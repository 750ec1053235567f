#include "platform/foundation/NSString.h"

#include <cstdint>
#include <cstring>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr char32_t replacement = 0xFFFD;

/// What the first byte of a sequence says about it: how many bytes follow, which bits it carries itself, and
/// what the second byte must lie between so that no character has two spellings.
struct Lead {
  int following = -1;  // negative: no sequence starts with this byte
  char32_t bits = 0;
  std::uint8_t secondLow = 0x80;
  std::uint8_t secondHigh = 0xBF;
};

Lead lead(std::uint8_t byte) {
  if (byte < 0x80) return {0, byte};
  if (byte < 0xC2) return {};
  if (byte < 0xE0) return {1, byte & 0x1Fu};
  if (byte == 0xE0) return {2, 0, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0xD, 0x80, 0x9F};
  if (byte < 0xF0) return {2, byte & 0x0Fu};
  if (byte == 0xF0) return {3, 0, 0x90, 0xBF};
  if (byte == 0xF4) return {3, 4, 0x80, 0x8F};
  if (byte < 0xF4) return {3, byte & 0x07u};
  return {};
}

/// Takes one character off the front of `utf8`; of an ill-formed one as much as could have begun it.
char32_t takeCharacter(std::string_view& utf8) {
  const Lead first = lead(static_cast<std::uint8_t>(utf8.front()));
  utf8.remove_prefix(1);
  if (first.following < 0) return replacement;
  char32_t character = first.bits;
  for (int i = 0; i < first.following; ++i) {
    const std::uint8_t low = i == 0 ? first.secondLow : 0x80;
    const std::uint8_t high = i == 0 ? first.secondHigh : 0xBF;
    const auto byte = utf8.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(utf8.front());
    if (byte < low || byte > high) return replacement;
    character = character << 6 | (byte & 0x3F);
    utf8.remove_prefix(1);
  }
  return character;
}

void append(std::u16string& units, char32_t character) {
  if (character < 0x10000) {
    units.push_back(static_cast<char16_t>(character));
    return;
  }
  units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
  units.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
}

bool isPlain(char byte) { return static_cast<signed char>(byte) >= 0; }

/// How many bytes at the front stand for one unit each. Most text is nothing else, so it looks at eight at
/// once.
std::size_t plainPrefix(std::string_view utf8) {
  std::size_t count = 0;
  for (std::uint64_t bytes = 0; utf8.size() - count >= sizeof bytes; count += sizeof bytes) {
    std::memcpy(&bytes, utf8.data() + count, sizeof bytes);
    if (bytes & 0x8080808080808080u) break;
  }
  while (count < utf8.size() && isPlain(utf8[count])) ++count;
  return count;
}

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

char32_t takeCharacter(std::u16string_view& units) {
  const char16_t unit = units.front();
  units.remove_prefix(1);
  if (isHighSurrogate(unit) && !units.empty() && isLowSurrogate(units.front())) {
    const char16_t low = units.front();
    units.remove_prefix(1);
    return 0x10000 + ((unit - 0xD800u) << 10) + (low - 0xDC00u);
  }
  return isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : unit;
}

void append(std::string& utf8, char32_t character) {
  const auto put = [&](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
  const auto follow = [&](int shift) { put(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) return put(character);
  if (character < 0x800) return put(0xC0 | character >> 6), follow(0);
  if (character < 0x10000) return put(0xE0 | character >> 12), follow(6), follow(0);
  put(0xF0 | character >> 18), follow(12), follow(6), follow(0);
}

}  // namespace

NSString::NSString(std::string_view utf8) {
  units_.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::size_t plain = plainPrefix(utf8);
    units_.append(utf8.begin(), utf8.begin() + plain);
    utf8.remove_prefix(plain);
    while (!utf8.empty() && !isPlain(utf8.front())) bkuk::append(units_, takeCharacter(utf8));
  }
}

std::string NSString::utf8() const {
  std::string text;
  text.reserve(units_.size());
  for (std::u16string_view rest = units_; !rest.empty();) bkuk::append(text, takeCharacter(rest));
  return text;
}

char16_t NSString::characterAt(std::size_t index) const {
  if (index >= length()) trap("NSString: characterAt beyond the end; ask length() before");
  return units_[index];
}

NSString NSString::substring(NSRange range) const {
  if (NSMaxRange(range) > length()) trap("NSString: substring beyond the end; ask length() before");
  return NSString(units_.substr(range.location, range.length));
}

void NSString::replaceCharacters(NSRange range, std::u16string_view units) {
  if (NSMaxRange(range) > length()) trap("NSString: replaceCharacters beyond the end; ask length() before");
  units_.replace(range.location, range.length, units);
}

std::size_t NSString::find(std::u16string_view text, std::size_t from) const {
  return text.empty() ? std::u16string::npos : units_.find(text, from);
}

NSRange NSString::range(const NSString& of) const {
  const auto found = find(of.units_, 0);
  return found == std::u16string::npos ? NSRange{NSNotFound, 0} : NSRange{found, of.length()};
}

std::vector<NSString> NSString::components(const NSString& separatedBy) const {
  std::vector<NSString> pieces;
  std::size_t begin = 0;
  const auto& separator = separatedBy.units_;
  for (auto end = find(separator, 0); end != std::u16string::npos; end = find(separator, begin)) {
    pieces.emplace_back(units_.substr(begin, end - begin));
    begin = end + separator.size();
  }
  pieces.emplace_back(units_.substr(begin));
  return pieces;
}

}  // namespace bkuk
