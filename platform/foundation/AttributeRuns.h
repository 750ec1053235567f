#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/foundation/NSAttributeDictionary.h"
#include "platform/foundation/NSRange.h"

namespace bkuk {

/// The attributes of a text by runs of code units that have the same.
///
/// Runs lie in chunks of bounded size that know where they start. Finding a run is two binary searches,
/// appending one amortised constant. An edit rewrites the chunks that it touches and moves the starts of
/// those behind it, of which there are a hundred times fewer than runs.
class AttributeRuns {
 public:
  /// A run on its way in or out: what it has and how many code units long it is.
  struct Piece {
    std::size_t length = 0;
    NSAttributeDictionary attributes;
  };
  struct Found {
    NSRange range;
    const NSAttributeDictionary& attributes;  ///< valid until the next change
  };

  [[nodiscard]] std::size_t length() const { return length_; }

  /// The run that holds `index`, which must be below `length()`. It may be part of a longer
  /// stretch with equal attributes.
  [[nodiscard]] Found find(std::size_t index) const;
  /// The runs of a range, cut to it.
  [[nodiscard]] std::vector<Piece> pieces(NSRange range) const;

  /// Runs that share their dictionary with the one before become part of it.
  void append(std::size_t length, const NSAttributeDictionary& attributes);
  /// Puts `pieces`, of any total length, in place of a range. Neighbours that are equal are joined.
  void replace(NSRange range, std::span<const Piece> pieces);

 private:
  struct Run {
    std::size_t start;  // counted from the chunk's
    NSAttributeDictionary attributes;
  };
  struct Chunk {
    std::size_t start;
    std::vector<Run> runs;  // never empty
  };

  [[nodiscard]] std::size_t chunkAt(std::size_t index) const;
  [[nodiscard]] std::size_t endOf(std::size_t chunk) const;
  void take(std::size_t chunk, std::vector<Piece>& into) const;
  void rewrite(std::size_t first, std::size_t last, std::span<const Piece> pieces);

  std::vector<Chunk> chunks_;
  std::size_t length_ = 0;
};

}  // namespace bkuk
