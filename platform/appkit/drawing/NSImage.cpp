#include "platform/appkit/drawing/NSImage.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>

#include "host/Desktop.h"
#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/foundation/CGRoundedUp.h"

namespace bkuk {

namespace {

bool hasExtent(CGSize size) {
  return std::isfinite(size.width) && std::isfinite(size.height) && size.width > 0 && size.height > 0;
}

bool isZero(const CGRect& rect) { return rect == CGRect(); }

CGRect wholeOf(CGSize size) { return {0, 0, size.width, size.height}; }

// The pixels for a picture of that many points on the main screen; fewer where it would eat all memory.
host::PixelSize pixelsFor(CGSize size) {
  constexpr double most = 1 << 24;
  constexpr double longest = 8192;
  if (!hasExtent(size)) return {};
  const auto scale = std::min({host::current().desktop().screens().front().scale, longest / size.width,
                               longest / size.height, std::sqrt(most / size.width / size.height)});
  return {static_cast<int>(CGRoundedUp(size.width * scale)),
          static_cast<int>(CGRoundedUp(size.height * scale))};
}

// Saves the current graphics state for the length of a scope.
class SavedState {
 public:
  SavedState() { NSGraphicsContext::saveGraphicsState(); }
  ~SavedState() { NSGraphicsContext::restoreGraphicsState(); }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;
};

// What lies over itself in a drawing function must fade and compose as one.
class Group {
 public:
  Group(CGContext& context, bool isNeeded) : context_(isNeeded ? &context : nullptr) {
    if (context_) context_->beginTransparencyLayer();
  }
  ~Group() {
    if (context_) context_->endTransparencyLayer();
  }
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;

 private:
  CGContext* context_;
};

// Nothing for what is no file that can be read, or larger than any picture.
std::vector<char> bytesOf(const std::filesystem::path& path) {
  constexpr std::uintmax_t most = 1 << 28;
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return {};
  const auto size = std::filesystem::file_size(path, error);
  if (error || size > most) return {};
  std::vector<char> bytes(size);
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

Ref<NSImageRep> representationOf(host::DecodedImage decoded, CGFloat scale) {
  if (decoded.drawing) return make<NSScalableImageRep>(std::move(decoded.drawing));
  if (decoded.pixels.isEmpty()) return nullptr;
  const auto [width, height] = decoded.pixels.size();
  return make<NSBitmapImageRep>(std::make_shared<const host::Bitmap>(std::move(decoded.pixels)),
                                CGSize{width / scale, height / scale});
}

}  // namespace

NSImage::NSImage(CGSize size) : size_(size) {}

NSImage::NSImage(CGSize size, bool flipped, DrawingHandler handler) : size_(size) {
  representations_.push_back(make<NSCustomImageRep>(size, flipped, std::move(handler)));
}

Ref<NSImage> NSImage::contentsOf(const std::string& path, CGFloat scale) {
  const auto bytes = bytesOf(path);
  return data(std::as_bytes(std::span(bytes)), scale);
}

Ref<NSImage> NSImage::data(std::span<const std::byte> bytes, CGFloat scale) {
  const auto representation = representationOf(host::current().drawing().decodeImage(bytes), scale);
  if (!representation) return nullptr;
  auto image = make<NSImage>(representation->size());
  image->addRepresentation(representation);
  return image;
}

Ref<NSImage> NSImage::copy() const {
  auto copy = make<NSImage>(size());
  copy->representations_ = representations_;
  copy->template_ = template_;
  return copy;
}

bool NSImage::isValid() const { return hasExtent(size()); }

void NSImage::addRepresentation(Ref<NSImageRep> representation) {
  representations_.push_back(std::move(representation));
}

// Drawing into it

void NSImage::lockFocus() {
  const auto size = this->size();
  const auto pixels = pixelsFor(size);
  const auto bitmap = std::make_shared<host::Bitmap>(pixels);
  const CGFloat x = hasExtent(size) ? pixels.width / size.width : 1;
  const CGFloat y = hasExtent(size) ? pixels.height / size.height : 1;
  // The context keeps the pixels, should somebody keep the context.
  const auto provide = [bitmap] { return bitmap->isEmpty() ? nullptr : bitmap.get(); };
  const auto context = make<CGContext>(
      pixels, provide, CGAffineTransform{x, 0, 0, -y, 0, static_cast<CGFloat>(pixels.height)});
  focus_.push_back({context, bitmap, size});
  NSGraphicsContext::saveGraphicsState();
  NSGraphicsContext::setCurrent(make<NSGraphicsContext>(context, false));
  NSImage::draw(wholeOf(size), {}, NSCompositingOperation::sourceOver, 1, false);
}

void NSImage::unlockFocus() {
  if (focus_.empty()) return;
  NSGraphicsContext::restoreGraphicsState();
  const auto focus = std::move(focus_.back());
  focus_.pop_back();
  focus.context->finish();
  representations_ = {make<NSBitmapImageRep>(focus.bitmap, focus.size)};
}

// Drawing it

void NSImage::draw(const CGRect& in) const { draw(in, {}, NSCompositingOperation::sourceOver, 1, true); }

void NSImage::draw(const CGRect& in, const CGRect& from, NSCompositingOperation operation,
                   CGFloat fraction) const {
  draw(in, from, operation, fraction, false);
}

void NSImage::drawAtPoint(CGPoint point, const CGRect& from, NSCompositingOperation operation,
                          CGFloat fraction) const {
  const auto extent = isZero(from) ? size() : from.size;
  draw({point, extent}, from, operation, fraction, false);
}

void NSImage::draw(const CGRect& in, const CGRect& from, NSCompositingOperation operation, CGFloat fraction,
                   bool respectFlipped) const {
  const auto context = NSGraphicsContext::current();
  const auto whole = wholeOf(size());
  const auto part = isZero(from) ? whole : from.standardized();
  const auto target = in.standardized();
  if (!context || !hasExtent(whole.size) || !hasExtent(part.size) || !hasExtent(target.size)) return;
  const Ref<const NSImage> self(this);
  const SavedState saved;
  auto& canvas = *context->cgContext();
  const auto pixelsOfTarget = canvas.userSpaceToDeviceSpaceTransform().apply(target).width();
  const auto representation = bestRepresentation(pixelsOfTarget * whole.width() / part.width());
  if (!representation) return;
  if (part != whole || !representation->staysInside()) canvas.clip(target);
  canvas.setAlpha(canvas.alpha() * std::clamp(fraction, 0.0, 1.0));
  canvas.setBlendMode(blendMode(operation));
  if (respectFlipped && context->isFlipped()) {
    canvas.translateBy(0, target.minY() + target.maxY());
    canvas.scaleBy(1, -1);
  }
  canvas.translateBy(target.minX(), target.minY());
  canvas.scaleBy(target.width() / part.width(), target.height() / part.height());
  canvas.translateBy(-part.minX(), -part.minY());
  const bool composes = operation != NSCompositingOperation::sourceOver || canvas.alpha() < 1;
  const Group group(canvas, composes && !representation->staysInside());
  representation->draw(canvas, whole);
}

// The first one that is drawn anew or has pixels enough, else the one with the most pixels.
Ref<NSImageRep> NSImage::bestRepresentation(CGFloat pixels) const {
  const auto isSharp = [pixels](const Ref<NSImageRep>& representation) {
    const auto own = representation->pixelsWide();
    return own == 0 || own >= pixels - 1;
  };
  if (representations_.empty()) return nullptr;
  const auto sharp = std::ranges::find_if(representations_, isSharp);
  if (sharp != representations_.end()) return *sharp;
  return *std::ranges::max_element(representations_, {}, &NSImageRep::pixelsWide);
}

}  // namespace bkuk
