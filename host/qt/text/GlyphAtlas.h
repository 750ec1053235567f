#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

#include "host/GlyphMasks.h"
#include "host/qt/text/GenerationCache.h"

class QRawFont;

namespace bkuk::host {

/// Where a pen stands on the device: Qt paints glyphs at four places within a pixel, and their baselines on
/// whole ones.
struct PenPlace {
  /// From the exact place in pixels, y down.
  PenPlace(double exactX, double exactY);

  int x;
  int quarter;  ///< of a pixel, right of `x`
  int y;
};

/// A glyph as it is painted at one size and scale at one place within a pixel.
struct GlyphKey {
  std::uint32_t face = 0;  ///< as `QtRawFonts` counts
  std::uint32_t index = 0;
  double size = 0;   ///< points to the em
  double scale = 0;  ///< pixels to the point
  int quarter = 0;
  bool operator==(const GlyphKey&) const = default;
};

/// The masks of glyphs that were shown lately. Those that somebody still shows live on when they are let
/// go of here.
class GlyphAtlas {
 public:
  /// Whether glyphs of that many pixels to the em are masks. Larger ones Qt fills as paths, at any place.
  [[nodiscard]] static bool takes(double size, double scale);

  /// Null when it is not there.
  [[nodiscard]] std::shared_ptr<const GlyphMask> find(const GlyphKey& key);
  /// As a painter paints it. `font` has the key's face and size.
  std::shared_ptr<const GlyphMask> add(const GlyphKey& key, const QRawFont& font);

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const GlyphKey& key) const;
  };

  using Mask = std::shared_ptr<const GlyphMask>;
  struct Bytes {
    std::size_t operator()(const Mask& mask) const { return sizeof(GlyphMask) + mask->coverage.size(); }
  };

  // Some thousand glyphs of the sizes that interfaces use.
  static constexpr std::size_t generationBytes = 1 << 20;

  GenerationCache<GlyphKey, Mask, Hash, std::equal_to<>, Bytes> masks_{generationBytes};
};

}  // namespace bkuk::host
