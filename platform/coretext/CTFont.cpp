#include "platform/coretext/CTFont.h"

#include <utility>

#include "host/Host.h"

namespace bkuk {

CTFont::CTFont(std::shared_ptr<const host::Font> font, CGFloat size)
    : font_(std::move(font)), metrics_(font_->metrics()), size_(size) {}

Ref<CTFont> CTFont::systemFont(CGFloat size, host::FontWeight weight) {
  return make<CTFont>(host::current().fonts().systemFont(size, weight), size);
}

Ref<CTFont> CTFont::font(std::string_view postScriptName, CGFloat size) {
  auto font = host::current().fonts().font(postScriptName, size);
  return font ? make<CTFont>(std::move(font), size) : nullptr;
}

CGRect CTFont::boundingBox() const {
  const auto& box = metrics_.bounds;
  return {box.x, box.y, box.width, box.height};
}

}  // namespace bkuk
