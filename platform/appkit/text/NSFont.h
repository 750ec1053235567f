#pragma once

#include <string>
#include <string_view>

#include "platform/coretext/CTFont.h"
#include "platform/foundation/NSGeometry.h"

namespace bkuk {

/// How heavy a face is, on the scale of the OpenType weight class: 400 is regular, 700 bold.
using NSFontWeight = host::FontWeight;

/// A face at a size. Immutable; the same name and size give the same object while one lives. Metrics are the
/// face's own, not rounded, in points. A size that is negative or not finite counts as 0.
class NSFont final : public NSObject {
 public:
  /// The registered or else installed face of that PostScript name, exactly; empty when there is none. Names
  /// that only other systems' faces for Japanese, Chinese or Korean have find what stands in for them here
  /// and keep their name. A size of 0 means 12 points.
  [[nodiscard]] static Ref<NSFont> font(std::string_view name, CGFloat size);
  /// Of the registered and installed faces of that family, as `familyName` answers it, the upright one of
  /// normal width whose weight is next to `weight`; another one where the family has no such face, and empty
  /// when there is no such family. A size of 0 means 12 points.
  [[nodiscard]] static Ref<NSFont> fontInFamily(std::string_view family, NSFontWeight weight, CGFloat size);
  /// The desktop's interface face. A size of 0 means 13 points.
  [[nodiscard]] static Ref<NSFont> systemFont(CGFloat ofSize, NSFontWeight weight = 400);

  /// Of a face that is known by `name`, which may be another than its own.
  NSFont(std::string name, Ref<CTFont> face) : name_(std::move(name)), face_(std::move(face)) {}

  [[nodiscard]] const std::string& fontName() const { return name_; }
  /// As people know the face; that of the stand-in where one stands in.
  [[nodiscard]] std::string familyName() const { return face_->familyName(); }
  /// As the face says itself, whatever weight it was asked for in.
  [[nodiscard]] NSFontWeight weight() const { return face_->weight(); }
  [[nodiscard]] CGFloat pointSize() const { return face_->size(); }
  [[nodiscard]] CGFloat ascender() const { return face_->ascent(); }
  /// Negative below the baseline.
  [[nodiscard]] CGFloat descender() const { return -face_->descent(); }
  [[nodiscard]] CGFloat leading() const { return face_->leading(); }
  [[nodiscard]] CGFloat capHeight() const { return face_->capHeight(); }
  [[nodiscard]] CGFloat xHeight() const { return face_->xHeight(); }
  /// Negative below the baseline.
  [[nodiscard]] CGFloat underlinePosition() const { return face_->underlinePosition(); }
  [[nodiscard]] CGFloat underlineThickness() const { return face_->underlineThickness(); }
  /// In degrees, counter-clockwise from upright: negative for letters that lean to the right.
  [[nodiscard]] CGFloat italicAngle() const { return face_->slantAngle(); }
  /// Around all glyphs of the face set at one place; y runs up from the baseline. Mostly taller than from
  /// descender to ascender.
  [[nodiscard]] NSRect boundingRectForFont() const { return face_->boundingBox(); }
  /// How far the pen travels past a glyph of the face.
  [[nodiscard]] NSSize advancement(CGGlyph forGlyph) const { return {face_->advance(forGlyph), 0}; }

  [[nodiscard]] const Ref<CTFont>& face() const { return face_; }

  [[nodiscard]] std::string className() const override { return "NSFont"; }

 private:
  std::string name_;
  Ref<CTFont> face_;
};

}  // namespace bkuk
