#include "platform/appkit/NSFont.h"

#include <map>
#include <utility>

namespace bkuk {

namespace {

constexpr CGFloat usualSize = 12;
constexpr CGFloat usualSystemSize = 13;

using Key = std::pair<std::string, CGFloat>;

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
  auto font = make<NSFont>(key.first.empty() ? face->postScriptName() : key.first, face);
  fonts[key] = font.get();
  return font;
}

}  // namespace

Ref<NSFont> NSFont::font(std::string_view name, CGFloat size) {
  if (size == 0) size = usualSize;
  return shared({std::string(name), size}, [&] { return CTFont::font(name, size); });
}

Ref<NSFont> NSFont::systemFont(CGFloat ofSize) {
  if (ofSize == 0) ofSize = usualSystemSize;
  // The empty name stands for whatever the desktop uses.
  return shared({std::string(), ofSize}, [&] { return CTFont::systemFont(ofSize); });
}

}  // namespace bkuk
