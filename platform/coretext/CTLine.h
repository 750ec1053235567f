#pragma once

#include "platform/coretext/CTFont.h"
#include "platform/foundation/NSString.h"

namespace bkuk {

class CGColor;
class CGContext;

enum class CTWritingDirection { leftToRight = 0, rightToLeft = 1 };

/// One line of text, shaped once. Immutable.
class CTLine final : public NSObject {
 public:
  /// `text` in one face; line breaks in it count as spaces. `direction` is the paragraph's.
  CTLine(const NSString& text, const Ref<CTFont>& font,
         CTWritingDirection direction = CTWritingDirection::leftToRight);

  /// The distance that the pen travels, in points.
  [[nodiscard]] CGFloat width() const { return line_->width(); }
  [[nodiscard]] CGFloat ascent() const { return font_->ascent(); }
  /// Positive below the baseline.
  [[nodiscard]] CGFloat descent() const { return font_->descent(); }
  [[nodiscard]] CGFloat leading() const { return font_->leading(); }

  /// Paints the line upright, whichever way the context's y axis runs. The baseline starts at `baseline`,
  /// on a whole device pixel unless the text is turned or slanted.
  void draw(CGContext& context, CGPoint baseline, const CGColor& color) const;

  [[nodiscard]] std::string className() const override { return "CTLine"; }

 private:
  Ref<CTFont> font_;
  std::shared_ptr<const host::TextLine> line_;
};

}  // namespace bkuk
