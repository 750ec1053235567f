#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/Text.h"
#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

using CGGlyph = std::uint32_t;

/// `size`, or `usual` where that is none: 0, negative or not finite.
[[nodiscard]] CGFloat CTFontUsableSize(CGFloat size, CGFloat usual);

/// A face at a size, in points; one that is no size means 12. Immutable.
class CTFont final : public NSObject {
 public:
  /// The desktop's interface face. `weight` is on the scale of the OpenType weight class.
  [[nodiscard]] static Ref<CTFont> systemFont(CGFloat size, host::FontWeight weight = 400);
  /// The registered or else installed face of that PostScript name, empty when there is none. Names that only
  /// other systems' faces for Japanese, Chinese or Korean have find what stands in for them.
  [[nodiscard]] static Ref<CTFont> font(std::string_view postScriptName, CGFloat size);

  /// The face of that family, as people know it, next to that weight: upright and of normal width, if there
  /// is one. Empty when there is no such family.
  [[nodiscard]] static Ref<CTFont> fontInFamily(std::string_view family, host::FontWeight weight,
                                                CGFloat size);

  explicit CTFont(std::shared_ptr<const host::Font> font, CGFloat size);

  [[nodiscard]] CGFloat size() const { return size_; }
  [[nodiscard]] std::string postScriptName() const { return font_->postScriptName(); }
  /// As people know it.
  [[nodiscard]] std::string familyName() const { return font_->familyName(); }
  /// As the face says itself, on the scale of the OpenType weight class.
  [[nodiscard]] host::FontWeight weight() const { return font_->weight(); }
  [[nodiscard]] CGFloat ascent() const { return metrics_.ascent; }
  /// Positive below the baseline.
  [[nodiscard]] CGFloat descent() const { return metrics_.descent; }
  [[nodiscard]] CGFloat leading() const { return metrics_.leading; }
  [[nodiscard]] CGFloat capHeight() const { return metrics_.capHeight; }
  [[nodiscard]] CGFloat xHeight() const { return metrics_.xHeight; }
  /// Negative below the baseline.
  [[nodiscard]] CGFloat underlinePosition() const { return metrics_.underlinePosition; }
  [[nodiscard]] CGFloat underlineThickness() const { return metrics_.underlineThickness; }
  /// In degrees, counter-clockwise from upright: negative for letters that lean to the right.
  [[nodiscard]] CGFloat slantAngle() const { return metrics_.italicAngle; }
  /// Around all glyphs of the face set at one place; y runs up from the baseline.
  [[nodiscard]] CGRect boundingBox() const;

  /// The face's own glyph for a character; 0 when it has none.
  [[nodiscard]] CGGlyph glyph(char32_t character) const { return font_->glyph(character); }
  /// How far the pen travels past a glyph of the face, in points.
  [[nodiscard]] CGFloat advance(CGGlyph glyph) const { return font_->advance(glyph); }

  [[nodiscard]] const host::Font& hostFont() const { return *font_; }

  [[nodiscard]] std::string className() const override { return "CTFont"; }

 private:
  std::shared_ptr<const host::Font> font_;
  host::FontMetrics metrics_;
  CGFloat size_;
};

}  // namespace bkuk
