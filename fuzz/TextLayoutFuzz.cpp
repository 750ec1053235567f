#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSLayoutManager.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

void require(bool holds) {
  if (!holds) __builtin_trap();
}

/// Reads numbers off the front of the input; zeros when there is nothing left.
class Reader {
 public:
  Reader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  int byte() {
    if (size_ == 0) return 0;
    --size_;
    return *data_++;
  }
  std::u16string rest() {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < std::min<std::size_t>(size_, 2048); i += 2)
      units += static_cast<char16_t>(data_[i] | data_[i + 1] << 8);
    return units;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

Ref<NSParagraphStyle> paragraphStyle(Reader& reader) {
  const auto style = make<NSMutableParagraphStyle>();
  style->setAlignment(static_cast<NSTextAlignment>(reader.byte() % 5));
  style->setLineBreakMode(static_cast<NSLineBreakMode>(reader.byte() % 6));
  style->setBaseWritingDirection(static_cast<NSWritingDirection>(reader.byte() % 3 - 1));
  style->setLineSpacing(reader.byte() % 4);
  style->setMinimumLineHeight(reader.byte() % 40);
  style->setMaximumLineHeight(reader.byte() % 40);
  style->setFirstLineHeadIndent(reader.byte() % 30);
  style->setTailIndent(reader.byte() % 40 - 20);
  style->setAllowsDefaultTighteningForTruncation(reader.byte() % 2 == 1);
  return style;
}

Ref<NSTextStorage> storage(Reader& reader) {
  NSAttributeDictionary runs[2];
  for (auto& attributes : runs) {
    attributes.set(NSParagraphStyleAttributeName, paragraphStyle(reader));
    attributes.set(NSFontAttributeName, NSFont::systemFont(1 + reader.byte() % 30));
    attributes.set(NSKernAttributeName, reader.byte() % 9 - 4);
    attributes.set(NSBaselineOffsetAttributeName, reader.byte() % 9 - 4);
  }
  const auto first = static_cast<std::size_t>(reader.byte());
  auto text = make<NSTextStorage>(NSString(reader.rest()), runs[0]);
  if (first < text->length()) text->setAttributes(runs[1], {first, text->length() - first});
  return text;
}

/// Everything that is asked about a layout has an answer that fits it.
void check(NSLayoutManager& manager, const NSTextContainer& container, const NSTextStorage& text) {
  const NSRange shown = manager.glyphRange(container);
  require(NSMaxRange(shown) <= text.length());
  const NSRect used = manager.usedRect(container);
  require(std::isfinite(used.minX()) && std::isfinite(used.width()) && std::isfinite(used.height()));
  for (std::size_t at = shown.location; at < NSMaxRange(shown);) {
    NSRange line;
    const NSRect rect = manager.lineFragmentRect(at, &line);
    require(line.location == at && line.length > 0 && NSMaxRange(line) <= NSMaxRange(shown));
    for (std::size_t i = at; i < NSMaxRange(line); ++i) {
      const NSRect box = manager.boundingRect({i, 1}, container);
      require(std::isfinite(box.minX()) && box.width() >= 0);
      const std::size_t hit = manager.glyphIndex({box.midX(), rect.midY()}, container);
      require(hit < text.length());
    }
    at = NSMaxRange(line);
  }
}

}  // namespace
}  // namespace bkuk

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace bkuk;
  static const VirtualHostScope& host = *new VirtualHostScope;
  (void)host;
  Reader reader(data, size);
  const auto container = make<NSTextContainer>(
      NSSize{static_cast<CGFloat>(reader.byte()), static_cast<CGFloat>(reader.byte() * 2)});
  container->setLineFragmentPadding(reader.byte() % 8);
  container->setMaximumNumberOfLines(static_cast<std::size_t>(reader.byte() % 4));
  container->setLineBreakMode(static_cast<NSLineBreakMode>(reader.byte() % 6));
  const auto manager = make<NSLayoutManager>();
  const auto text = storage(reader);
  manager->setUserInterfaceLayoutDirection(static_cast<NSUserInterfaceLayoutDirection>(reader.byte() % 2));
  manager->addTextContainer(container);
  text->addLayoutManager(manager);
  check(*manager, *container, *text);
  const NSSize measured =
      text->boundingRect(container->size(), NSStringDrawingOptions::usesLineFragmentOrigin).size;
  require(std::isfinite(measured.width) && std::isfinite(measured.height));
  return 0;
}
