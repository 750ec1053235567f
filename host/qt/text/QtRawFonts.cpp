#include "host/qt/text/QtRawFonts.h"

#include <algorithm>

namespace bkuk::host {

namespace {

// Sizes that run through many values must not pile up; lines keep what they draw with.
constexpr std::size_t mostSizes = 256;

bool hasPictures(const QRawFont& font) {
  constexpr const char* tables[] = {"CBDT", "COLR", "SVG ", "sbix"};
  return std::ranges::any_of(tables, [&](const char* table) { return !font.fontTable(table).isEmpty(); });
}

}  // namespace

std::uint32_t QtRawFonts::number(const QRawFont& font) {
  const auto found = std::ranges::find(faces_, font, &Face::font);
  if (found != faces_.end()) return static_cast<std::uint32_t>(found - faces_.begin());
  faces_.push_back({font, hasPictures(font)});
  return static_cast<std::uint32_t>(faces_.size() - 1);
}

QRawFont QtRawFonts::at(std::uint32_t number, double size) {
  if (const auto found = sized_.find({number, size}); found != sized_.end()) return found->second;
  if (sized_.size() >= mostSizes) sized_.clear();
  QRawFont font = faces_[number].font;
  font.setPixelSize(size);
  return sized_[{number, size}] = font;
}

std::shared_ptr<const GlyphMask> QtRawFonts::mask(const GlyphKey& key) {
  if (faces_[key.face].hasPictures || !GlyphAtlas::takes(key.size, key.scale)) return nullptr;
  if (auto known = atlas_.find(key)) return known;
  return atlas_.add(key, at(key.face, key.size));
}

}  // namespace bkuk::host
