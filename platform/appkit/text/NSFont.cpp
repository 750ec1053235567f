#include "platform/appkit/text/NSFont.h"

#include <map>
#include <tuple>

namespace bkuk {

namespace {

constexpr CGFloat usualSize = 12;
constexpr CGFloat usualSystemSize = 13;

/// A face by name, or the system face by weight, and a size.
using Key = std::tuple<std::string, NSFontWeight, CGFloat>;

std::map<Key, Weak<NSFont>>& livingFonts() {
  static auto& fonts = *new std::map<Key, Weak<NSFont>>;
  return fonts;
}

// The living font of that name and size, else the one that `load` makes of it.
template <typename Load>
Ref<NSFont> shared(const Key& key, Load load) {
  auto& fonts = livingFonts();
  if (const auto found = fonts.find(key); found != fonts.end()) {
    if (auto living = found->second.lock()) return living;
  }
  const Ref<CTFont> face = load();
  if (!face) return nullptr;
  std::erase_if(fonts, [](const auto& entry) { return !entry.second.isAlive(); });
  const auto& name = std::get<std::string>(key);
  auto font = make<NSFont>(name.empty() ? face->postScriptName() : name, face);
  fonts[key] = font.get();
  return font;
}

}  // namespace

Ref<NSFont> NSFont::font(std::string_view name, CGFloat size) {
  if (name.empty()) return nullptr;
  size = CTFontUsableSize(size, usualSize);
  return shared({std::string(name), 0, size}, [&] { return CTFont::font(name, size); });
}

Ref<NSFont> NSFont::fontInFamily(std::string_view family, NSFontWeight weight, CGFloat size) {
  const auto face = CTFont::fontInFamily(family, weight, size);
  return face ? font(face->postScriptName(), size) : nullptr;
}

Ref<NSFont> NSFont::systemFont(CGFloat ofSize, NSFontWeight weight) {
  ofSize = CTFontUsableSize(ofSize, usualSystemSize);
  // The empty name stands for whatever the desktop uses.
  return shared({std::string(), weight, ofSize}, [&] { return CTFont::systemFont(ofSize, weight); });
}

}  // namespace bkuk
