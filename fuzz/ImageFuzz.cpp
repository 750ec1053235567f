#include <cstddef>
#include <cstdint>
#include <span>

#include "host/Bitmap.h"
#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/appkit/drawing/NSImage.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

// Large pictures are decoded as well as small ones, only slower.
constexpr std::size_t longestInput = 1 << 16;

void draw(const NSImage& image) {
  host::Bitmap bitmap({16, 16});
  const auto context = make<CGContext>(bitmap, CGAffineTransform{1, 0, 0, -1, 0, 16});
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, false));
  image.draw({0.5, 0.5, 15, 15});
}

}  // namespace
}  // namespace bkuk

/// What is read has an extent and can be drawn; what is not says why.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace bkuk;
  static const auto& host = *new VirtualHostScope;
  static_cast<void>(host);
  const auto file = std::as_bytes(std::span(data, size));
  if (size > longestInput) return 0;
  const auto decoded = host::current().drawing().decodeImage(file);
  const bool isRead = !decoded.pixels.isEmpty() || decoded.drawing;
  if (isRead != (decoded.fault == host::ImageFault::none)) __builtin_trap();
  const auto image = NSImage::data(file);
  if (bool(image) != isRead) __builtin_trap();
  if (!image) return 0;
  if (!image->isValid()) __builtin_trap();
  draw(*image);
  return 0;
}
