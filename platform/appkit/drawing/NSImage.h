#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/appkit/drawing/NSImageRep.h"

namespace bkuk {

/// A picture of some size in points: pixels, a drawing from a file, or a function that draws.
///
/// Whoever shows an image asks it for `size`, `copy` and one of the `draw` forms and nothing else, so that a
/// subclass which answers those works everywhere.
class NSImage : public NSObject {
 public:
  using DrawingHandler = NSCustomImageRep::DrawingHandler;

  /// Empty, to be drawn into between `lockFocus` and `unlockFocus`.
  explicit NSImage(CGSize size);
  /// `handler` runs each time that the image is drawn, with the rectangle of its size at zero; the current
  /// context is the target's, transformed and clipped to that rectangle. Its y runs down when `flipped`.
  NSImage(CGSize size, bool flipped, DrawingHandler handler);

  /// The picture in a file: PNG, JPEG, or SVG where the host can read it. Absent when the file cannot be
  /// read, is damaged or of another kind. A picture of pixels is as many points wide as it has pixels across,
  /// divided by `scale`.
  [[nodiscard]] static Ref<NSImage> contentsOf(const std::string& path, CGFloat scale = 1);
  /// The same from the bytes of a file.
  [[nodiscard]] static Ref<NSImage> data(std::span<const std::byte> bytes, CGFloat scale = 1);

  /// In points.
  [[nodiscard]] virtual CGSize size() const { return size_; }
  /// Scales everything in it.
  virtual void setSize(CGSize size) { size_ = size; }
  /// With the same representations; from then on the two go their own ways.
  [[nodiscard]] virtual Ref<NSImage> copy() const;

  /// Only its coverage counts, to be filled with a colour by whoever shows it. False at first.
  [[nodiscard]] bool isTemplate() const { return template_; }
  void setTemplate(bool isTemplate) { template_ = isTemplate; }
  /// Whether it can be drawn: it has an extent.
  [[nodiscard]] bool isValid() const;
  [[nodiscard]] const std::vector<Ref<NSImageRep>>& representations() const { return representations_; }
  void addRepresentation(Ref<NSImageRep> representation);

  /// Makes the image the target of drawing, y up, until `unlockFocus`. What it shows already is there to be
  /// drawn over, from then on as the pixels of the main screen. Pairs nest.
  void lockFocus();
  /// Ignored without `lockFocus`.
  void unlockFocus();

  // Into the current graphics context; nothing without one.

  /// Above what is there, upright also where y runs down.
  virtual void draw(const CGRect& in) const;
  /// The part `from` of the image, in its own points with y up, zero for all of it. Where y runs down it is
  /// upside down. `fraction`: of its opacity, 0 to 1.
  virtual void draw(const CGRect& in, const CGRect& from, NSCompositingOperation operation,
                    CGFloat fraction) const;
  /// The same, upright where `respectFlipped` says so.
  virtual void draw(const CGRect& in, const CGRect& from, NSCompositingOperation operation, CGFloat fraction,
                    bool respectFlipped) const;
  /// In its own size.
  virtual void drawAtPoint(CGPoint point, const CGRect& from, NSCompositingOperation operation,
                           CGFloat fraction) const;

  [[nodiscard]] std::string className() const override { return "NSImage"; }

 private:
  struct Focus {
    Ref<CGContext> context;
    std::shared_ptr<host::Bitmap> bitmap;
    CGSize size;
  };

  // To be shown across so many device pixels.
  [[nodiscard]] Ref<NSImageRep> bestRepresentation(CGFloat pixels) const;

  CGSize size_;
  std::vector<Ref<NSImageRep>> representations_;
  std::vector<Focus> focus_;
  bool template_ = false;
};

}  // namespace bkuk
