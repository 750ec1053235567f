#pragma once

#include <functional>
#include <memory>

#include "host/Bitmap.h"
#include "host/ImageFile.h"
#include "platform/coregraphics/CGContext.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// One way to show an image. Immutable, so that images share them.
class NSImageRep : public NSObject {
 public:
  /// In points; not empty.
  [[nodiscard]] CGSize size() const { return size_; }
  /// Its own pixels; 0 when it is drawn anew for every device.
  [[nodiscard]] virtual int pixelsWide() const { return 0; }
  [[nodiscard]] virtual int pixelsHigh() const { return 0; }

  /// Draws all of it into a rectangle of user space, its upper edge at the greatest y. False when nothing
  /// was drawn.
  virtual bool draw(CGContext& context, const CGRect& rect) const = 0;
  /// Whether drawing keeps to the rectangle by itself.
  [[nodiscard]] virtual bool staysInside() const { return true; }

 protected:
  explicit NSImageRep(CGSize size) : size_(size) {}

 private:
  CGSize size_;
};

/// Pixels.
class NSBitmapImageRep final : public NSImageRep {
 public:
  NSBitmapImageRep(std::shared_ptr<const host::Bitmap> bitmap, CGSize size)
      : NSImageRep(size), bitmap_(std::move(bitmap)) {}

  [[nodiscard]] const host::Bitmap& bitmap() const { return *bitmap_; }
  [[nodiscard]] int pixelsWide() const override { return bitmap_->size().width; }
  [[nodiscard]] int pixelsHigh() const override { return bitmap_->size().height; }
  bool draw(CGContext& context, const CGRect& rect) const override;
  [[nodiscard]] std::string className() const override { return "NSBitmapImageRep"; }

 private:
  std::shared_ptr<const host::Bitmap> bitmap_;
};

/// A drawing from a file, sharp at every size.
class NSScalableImageRep final : public NSImageRep {
 public:
  explicit NSScalableImageRep(std::shared_ptr<const host::ScalableImage> drawing);

  bool draw(CGContext& context, const CGRect& rect) const override;
  [[nodiscard]] std::string className() const override { return "NSScalableImageRep"; }

 private:
  std::shared_ptr<const host::ScalableImage> drawing_;
  mutable std::shared_ptr<const host::Bitmap>
      rendered_;  // of the last use, which the next one is likely to want
};

/// A function that draws.
class NSCustomImageRep final : public NSImageRep {
 public:
  /// Draws the image into `rect`, which starts at zero. False means that nothing was drawn.
  using DrawingHandler = std::function<bool(const CGRect& rect)>;

  NSCustomImageRep(CGSize size, bool flipped, DrawingHandler handler)
      : NSImageRep(size), handler_(std::move(handler)), flipped_(flipped) {}

  bool draw(CGContext& context, const CGRect& rect) const override;
  [[nodiscard]] bool staysInside() const override { return false; }
  [[nodiscard]] std::string className() const override { return "NSCustomImageRep"; }

 private:
  DrawingHandler handler_;
  bool flipped_;
};

}  // namespace bkuk
