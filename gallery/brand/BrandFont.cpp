#include "gallery/brand/BrandFont.h"

#include <map>
#include <utility>

namespace bkuk::gallery {

namespace {

std::string_view faceOfWeight(int weight) {
  if (weight >= 700) return "Inter-Bold";
  if (weight >= 600) return "Inter-SemiBold";
  return weight >= 500 ? "Inter-Medium" : "Inter-Regular";
}

}  // namespace

Ref<CTFont> brandFont(CGFloat size, int weight) {
  static auto& fonts = *new std::map<std::pair<CGFloat, int>, Ref<CTFont>>;
  auto& font = fonts[{size, weight}];
  if (!font) font = CTFont::font(faceOfWeight(weight), size);
  if (!font) font = CTFont::systemFont(size, weight);
  return font;
}

}  // namespace bkuk::gallery
