#include "host/support/FontFile.h"

#include <algorithm>
#include <optional>

#include "host/support/BigEndianReader.h"

namespace bkuk::host {

namespace {

constexpr std::uint32_t tagOf(std::string_view text) {
  std::uint32_t tag = 0;
  for (const char c : text) tag = tag << 8 | static_cast<unsigned char>(c);
  return tag;
}

constexpr std::uint32_t trueType = 0x00010000;
constexpr std::uint32_t headMagic = 0x5F0F3CF5;
constexpr std::size_t mostFaces = 64;
constexpr std::size_t mostTables = 256;
constexpr std::size_t directoryStart = 12;
constexpr std::size_t directoryEntry = 16;

bool isFaceKind(std::uint32_t kind) {
  return kind == trueType || kind == tagOf("OTTO") || kind == tagOf("true");
}

bool hasGlyphs(const FontFileFace& face) {
  if (!face.table("glyf").empty()) return !face.table("loca").empty();
  return !face.table("CFF ").empty() || !face.table("CFF2").empty() || !face.table("CBDT").empty();
}

bool isComplete(const FontFileFace& face) {
  for (const char* tag : {"cmap", "head", "hhea", "hmtx", "maxp"}) {
    if (face.table(tag).empty()) return false;
  }
  return hasGlyphs(face) && BigEndianReader(face.table("head")).u32(12) == headMagic &&
         BigEndianReader(face.table("maxp")).u16(4) > 0 && readMetrics(face.fontTables());
}

std::optional<FontFileFace> readFace(std::span<const std::byte> file, std::size_t start) {
  const BigEndianReader reader(file);
  FontFileFace face;
  face.kind = reader.u32(start);
  const std::size_t count = reader.u16(start + 4);
  if (!isFaceKind(face.kind) || count > mostTables) return std::nullopt;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = start + directoryStart + directoryEntry * i;
    const std::size_t length = reader.u32(entry + 12);
    const auto bytes = reader.bytes(reader.u32(entry + 8), length);
    if (!reader.holds(entry + directoryEntry) || bytes.size() != length) return std::nullopt;
    face.tables.push_back({reader.u32(entry), bytes});
  }
  face.postScriptName = postScriptName(face.fontTables());
  if (face.postScriptName.empty() || !isComplete(face)) return std::nullopt;
  return face;
}

class Writer {
 public:
  void u16(std::size_t value) {
    bytes.push_back(static_cast<std::byte>(value >> 8 & 0xFF));
    bytes.push_back(static_cast<std::byte>(value & 0xFF));
  }
  void u32(std::size_t value) {
    u16(value >> 16 & 0xFFFF);
    u16(value & 0xFFFF);
  }
  void append(std::span<const std::byte> more) { bytes.insert(bytes.end(), more.begin(), more.end()); }
  void align() { bytes.resize((bytes.size() + 3) / 4 * 4); }

  std::vector<std::byte> bytes;
};

// A table with the four names that a text stack asks for.
std::vector<std::byte> nameTable(std::string_view family, std::string_view postScript) {
  struct Name {
    std::size_t id;
    std::string_view text;
  };
  const Name names[] = {{1, family}, {2, "Regular"}, {4, family}, {6, postScript}};
  Writer table;
  Writer strings;
  table.u16(0);
  table.u16(std::size(names));
  table.u16(6 + 12 * std::size(names));
  for (const auto& [id, text] : names) {
    for (const std::size_t field : {std::size_t{3}, std::size_t{1}, std::size_t{0x409}, id}) table.u16(field);
    table.u16(2 * text.size());
    table.u16(strings.bytes.size());
    for (const char c : text) strings.u16(static_cast<unsigned char>(c));
  }
  table.append(strings.bytes);
  return std::move(table.bytes);
}

}  // namespace

std::span<const std::byte> FontFileFace::table(std::string_view tag) const {
  const auto found = std::ranges::find(tables, tagOf(tag), &Table::tag);
  return found == tables.end() ? std::span<const std::byte>() : found->bytes;
}

FontTables FontFileFace::fontTables() const {
  return {table("head"), table("hhea"), table("OS/2"), table("post"), table("name")};
}

bool looksLikeFont(std::span<const std::byte> start) {
  const auto kind = BigEndianReader(start).u32(0);
  return isFaceKind(kind) || kind == tagOf("ttcf");
}

std::vector<FontFileFace> readFontFile(std::span<const std::byte> file) {
  const BigEndianReader reader(file);
  const bool isCollection = reader.u32(0) == tagOf("ttcf");
  const std::size_t count = isCollection ? std::min<std::size_t>(reader.u32(8), mostFaces) : 1;
  std::vector<FontFileFace> faces;
  for (std::size_t i = 0; i < count; ++i) {
    auto face = readFace(file, isCollection ? reader.u32(12 + 4 * i) : 0);
    if (face) faces.push_back(std::move(*face));
  }
  return faces;
}

std::vector<std::byte> fileOfFace(const FontFileFace& face, std::string_view family) {
  const auto names = nameTable(family, face.postScriptName);
  std::vector<FontFileFace::Table> tables;
  for (const auto& table : face.tables) {
    // A signature would not hold any more.
    if (table.tag == tagOf("DSIG")) continue;
    tables.push_back({table.tag, table.tag == tagOf("name") ? std::span(names) : table.bytes});
  }
  Writer file;
  file.u32(face.kind);
  file.u16(tables.size());
  for (int field = 0; field < 3; ++field) file.u16(0);
  std::size_t offset = directoryStart + directoryEntry * tables.size();
  for (const auto& table : tables) {
    for (const std::size_t field : {std::size_t{table.tag}, std::size_t{0}, offset, table.bytes.size()}) {
      file.u32(field);
    }
    offset = (offset + table.bytes.size() + 3) / 4 * 4;
  }
  for (const auto& table : tables) {
    file.append(table.bytes);
    file.align();
  }
  return std::move(file.bytes);
}

}  // namespace bkuk::host
