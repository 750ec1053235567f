#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/support/FontTables.h"

namespace bkuk::host {

/// One face of a font file: its tables, which point into the bytes of the file.
struct FontFileFace {
  struct Table {
    std::uint32_t tag{};
    std::span<const std::byte> bytes{};
  };
  std::uint32_t kind = 0;  ///< the first four bytes of the face: what sort of outlines it has
  std::vector<Table> tables{};
  std::string postScriptName{};

  [[nodiscard]] std::span<const std::byte> table(std::string_view tag) const;
  [[nodiscard]] FontTables fontTables() const;
};

/// Whether a file that begins with these bytes could be read by `readFontFile`.
[[nodiscard]] bool looksLikeFont(std::span<const std::byte> start);

/// The faces of an OpenType or TrueType file or of a collection of them. Faces are left out that lack a name
/// or a table that text cannot do without, or whose tables reach beyond the end of the file; what is no font
/// has none. Takes any bytes.
[[nodiscard]] std::vector<FontFileFace> readFontFile(std::span<const std::byte> file);

/// A file of that one face, which calls itself by another family. With a family of its own a face is found
/// by no other name and replaces none.
[[nodiscard]] std::vector<std::byte> fileOfFace(const FontFileFace& face, std::string_view family);

}  // namespace bkuk::host
