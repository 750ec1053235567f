#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <tuple>

#include "host/Text.h"

namespace bkuk::host {

/// The tables of an OpenType face that say what it is called and how large it is. A table that the face
/// lacks is empty.
struct FontTables {
  std::span<const std::byte> head{};
  std::span<const std::byte> hhea{};
  std::span<const std::byte> os2{};
  std::span<const std::byte> post{};
  std::span<const std::byte> name{};
};

/// The metrics of a face in its own units, and how many of those make an em.
struct FaceMetrics {
  double unitsPerEm = 0;
  FontMetrics units{};
  /// Old faces do not tell these two; then they are 0 and their letters tell.
  bool hasLetterHeights = false;
  /// 1 to 1000; 400 where the face does not tell.
  FontWeight weight = 400;
  int widthClass = 5;  ///< 1 for ultra-condensed to 9 for ultra-expanded, 5 for normal

  /// Orders the faces of a family by how far they are from an upright one of normal width in that weight:
  /// the least is the nearest.
  [[nodiscard]] std::tuple<bool, int, FontWeight, FontWeight> distance(FontWeight wanted) const;

  /// At `size` points to the em.
  [[nodiscard]] FontMetrics at(double size) const;
};

/// Absent for what is no outline face: without head or hhea, or with an em that no face can have.
[[nodiscard]] std::optional<FaceMetrics> readMetrics(const FontTables& tables);

/// Empty when the face has none or one that is not printable ASCII.
[[nodiscard]] std::string postScriptName(const FontTables& tables);

/// The family by which people know the face, in UTF-8; empty when there is none.
[[nodiscard]] std::string familyName(const FontTables& tables);

}  // namespace bkuk::host
