#pragma once

#include <memory>
#include <vector>

#include "host/Canvas.h"
#include "host/Text.h"
#include "platform/coregraphics/CGAffineTransform.h"
#include "platform/coregraphics/PaintedPiece.h"

namespace bkuk {

/// What was painted into a bitmap that nobody has made yet, as long as it is pieces on whole pixels, and how
/// a canvas paints the same.
class PaintRecord {
 public:
  /// For a bitmap of `size`.
  explicit PaintRecord(host::PixelSize size);

  /// `toDevice` maps the line's space, y down from the baseline. False when that is no piece, or when the
  /// pieces would cost more than the bitmap.
  bool addText(const std::shared_ptr<const host::TextLine>& line, const CGAffineTransform& toDevice,
               const host::Rgba& color);
  /// The whole image in `rect`, in pixels.
  bool addImage(const std::shared_ptr<const host::Bitmap>& image, const host::Rect& rect, double alpha);

  /// `canvas` has its first state.
  void replay(host::Canvas& canvas) const;
  /// From back to front.
  [[nodiscard]] std::vector<PaintedPiece> takePieces();

 private:
  struct Text {
    std::shared_ptr<const host::TextLine> line;
    CGAffineTransform toDevice;
  };

  [[nodiscard]] bool hasRoomFor(long pixels);
  void replay(host::Canvas& canvas, const PaintedText& text, const Text& source) const;

  long room_;
  bool hasImages_ = false;
  std::vector<PaintedPiece> pieces_;
  std::vector<Text> sources_;  // one for each piece of text
};

}  // namespace bkuk
