#include "host/support/FontTables.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "host/support/BigEndianReader.h"

namespace bkuk::host {

namespace {

constexpr int smallestEm = 16;
constexpr int largestEm = 16384;

enum NameId { family = 1, postScript = 6, typographicFamily = 16 };
constexpr int macintosh = 1;
constexpr int englishOfWindows = 0x409;

void append(std::string& utf8, std::uint32_t c) {
  if (c < 0x80) return utf8.push_back(static_cast<char>(c));
  if (c < 0x800) {
    utf8.push_back(static_cast<char>(0xC0 | c >> 6));
  } else {
    if (c < 0x10000) {
      utf8.push_back(static_cast<char>(0xE0 | c >> 12));
    } else {
      utf8.push_back(static_cast<char>(0xF0 | c >> 18));
      utf8.push_back(static_cast<char>(0x80 | (c >> 12 & 0x3F)));
    }
    utf8.push_back(static_cast<char>(0x80 | (c >> 6 & 0x3F)));
  }
  utf8.push_back(static_cast<char>(0x80 | (c & 0x3F)));
}

std::string fromUtf16(std::span<const std::byte> bytes) {
  const BigEndianReader units(bytes);
  std::string utf8;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const std::uint32_t unit = units.u16(i);
    const std::uint32_t next = units.u16(i + 2);
    if (unit < 0xD800 || unit > 0xDFFF) {
      append(utf8, unit);
    } else if (unit < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
      append(utf8, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
      i += 2;
    } else {
      append(utf8, 0xFFFD);
    }
  }
  return utf8;
}

std::string fromMacintosh(std::span<const std::byte> bytes) {
  std::string utf8;
  for (const auto byte : bytes) {
    const auto c = std::to_integer<std::uint32_t>(byte);
    append(utf8, c < 0x80 ? c : 0xFFFD);
  }
  return utf8;
}

// The text of that kind, English before any other language.
std::string named(std::span<const std::byte> table, int id) {
  const BigEndianReader names(table);
  const std::size_t strings = names.u16(4);
  std::string found;
  for (std::size_t i = 0, count = names.u16(2); i < count; ++i) {
    const std::size_t record = 6 + 12 * i;
    if (!names.holds(record + 12)) break;
    if (names.u16(record + 6) != id) continue;
    const int platform = names.u16(record);
    const bool isEnglish = platform != macintosh && names.u16(record + 4) == englishOfWindows;
    if (!found.empty() && !isEnglish) continue;
    const auto bytes = names.bytes(strings + names.u16(record + 10), names.u16(record + 8));
    found = platform == macintosh ? fromMacintosh(bytes) : fromUtf16(bytes);
    if (isEnglish) break;
  }
  return found;
}

// Multiplies before it divides: a size divided by an em is rounded already, and lengths that are whole would
// come out beside it.
FontMetrics scaled(const FontMetrics& metrics, double factor, double divisor) {
  FontMetrics result = metrics;
  for (double* length : {&result.ascent, &result.descent, &result.leading, &result.capHeight, &result.xHeight,
                         &result.underlinePosition, &result.underlineThickness, &result.bounds.x,
                         &result.bounds.y, &result.bounds.width, &result.bounds.height}) {
    *length = *length * factor / divisor;
  }
  return result;
}

}  // namespace

std::tuple<bool, int, FontWeight, FontWeight> FaceMetrics::distance(FontWeight wanted) const {
  constexpr int normalWidth = 5;
  return {units.italicAngle != 0, std::abs(widthClass - normalWidth), std::abs(weight - wanted), weight};
}

FontMetrics FaceMetrics::at(double size) const { return scaled(units, size, unitsPerEm); }

std::optional<FaceMetrics> readMetrics(const FontTables& tables) {
  const BigEndianReader head(tables.head);
  const BigEndianReader hhea(tables.hhea);
  const BigEndianReader os2(tables.os2);
  const BigEndianReader post(tables.post);
  const int unitsPerEm = head.u16(18);
  if (!head.holds(44) || !hhea.holds(10) || unitsPerEm < smallestEm || unitsPerEm > largestEm) {
    return std::nullopt;
  }
  FaceMetrics metrics;
  metrics.unitsPerEm = unitsPerEm;
  auto& units = metrics.units;
  const double left = head.i16(36);
  const double bottom = head.i16(38);
  units.bounds = {left, bottom, std::max(0.0, head.i16(40) - left), std::max(0.0, head.i16(42) - bottom)};
  units.ascent = hhea.i16(4);
  units.descent = -hhea.i16(6);
  units.leading = hhea.i16(8);
  units.italicAngle = post.fixed(4);
  units.underlinePosition = post.i16(8);
  units.underlineThickness = post.i16(10);
  if (os2.holds(6)) metrics.weight = std::clamp<int>(os2.u16(4), 1, 1000);
  if (os2.holds(8)) metrics.widthClass = os2.u16(6);
  metrics.hasLetterHeights = os2.u16(0) >= 2 && os2.holds(90);
  if (metrics.hasLetterHeights) {
    units.xHeight = os2.i16(86);
    units.capHeight = os2.i16(88);
  }
  return metrics;
}

std::string postScriptName(const FontTables& tables) {
  auto name = named(tables.name, NameId::postScript);
  const bool isPlain = std::ranges::all_of(name, [](char c) { return c > ' ' && c < '\x7F'; });
  return isPlain ? name : std::string();
}

std::string familyName(const FontTables& tables) {
  auto name = named(tables.name, NameId::typographicFamily);
  return name.empty() ? named(tables.name, NameId::family) : name;
}

}  // namespace bkuk::host
