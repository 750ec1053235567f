// The part of NSBundle that knows images, which the foundation does not.

#include "platform/foundation/NSBundle.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "platform/appkit/drawing/NSImage.h"

namespace bkuk {

namespace {

namespace fs = std::filesystem;

// In the order of preference.
constexpr std::array<std::string_view, 4> types{".svg", ".png", ".jpg", ".jpeg"};

struct Variant {
  std::string_view suffix;
  int scale;
};
constexpr std::array variants{Variant{"@3x", 3}, Variant{"@2x", 2}, Variant{"", 1}};

// The one with the most pixels for a point.
Ref<NSImage> sharpest(const fs::path& directory, const std::string& stem, std::string_view type) {
  for (const auto& variant : variants) {
    auto name = stem;
    name.append(variant.suffix).append(type);
    if (auto image = NSImage::contentsOf((directory / name).string(), variant.scale)) return image;
  }
  return nullptr;
}

}  // namespace

Ref<NSImage> NSBundle::image(std::string_view forResource) const {
  const fs::path name(forResource);
  if (forResource.empty() || name.filename() != name) return nullptr;
  const auto type = name.extension().string();
  if (std::ranges::find(types, type) != types.end())
    return sharpest(resourcePath_, name.stem().string(), type);
  for (const auto each : types) {
    if (auto image = sharpest(resourcePath_, name.string(), each)) return image;
  }
  return nullptr;
}

}  // namespace bkuk
