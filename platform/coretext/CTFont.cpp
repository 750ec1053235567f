#include "platform/coretext/CTFont.h"

#include <cmath>
#include <utility>

#include "host/Drawing.h"
#include "host/Host.h"

namespace bkuk {

namespace {

constexpr CGFloat usualSize = 12;

Ref<CTFont> made(std::shared_ptr<const host::Font> font, CGFloat size) {
  return font ? make<CTFont>(std::move(font), size) : nullptr;
}

}  // namespace

CGFloat CTFontUsableSize(CGFloat size, CGFloat usual) {
  return std::isfinite(size) && size > 0 ? size : usual;
}

CTFont::CTFont(std::shared_ptr<const host::Font> font, CGFloat size)
    : font_(std::move(font)), metrics_(font_->metrics()), size_(size) {}

Ref<CTFont> CTFont::systemFont(CGFloat size, host::FontWeight weight) {
  size = CTFontUsableSize(size, usualSize);
  return made(host::current().drawing().fonts().systemFont(size, weight), size);
}

Ref<CTFont> CTFont::font(std::string_view postScriptName, CGFloat size) {
  size = CTFontUsableSize(size, usualSize);
  return made(host::current().drawing().fonts().font(postScriptName, size), size);
}

Ref<CTFont> CTFont::fontInFamily(std::string_view family, host::FontWeight weight, CGFloat size) {
  size = CTFontUsableSize(size, usualSize);
  return made(host::current().drawing().fonts().fontInFamily(family, size, weight), size);
}

CGRect CTFont::boundingBox() const {
  const auto& box = metrics_.bounds;
  return {box.x, box.y, box.width, box.height};
}

}  // namespace bkuk
