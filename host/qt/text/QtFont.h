#pragma once

#include <memory>

#include "host/Text.h"
#include "host/qt/text/QtFace.h"
#include "host/qt/text/QtTextShaper.h"

namespace bkuk::host {

/// A face at a size.
class QtFont final : public Font {
 public:
  /// A size that is not finite or not above 0 is taken as 1, one above 10000 as that.
  QtFont(std::shared_ptr<const QtFace> face, double size, std::shared_ptr<QtTextShaper> shaper);

  [[nodiscard]] FontMetrics metrics() const override { return face_->metrics(size_); }
  [[nodiscard]] std::string postScriptName() const override { return face_->postScriptName(); }
  [[nodiscard]] std::string familyName() const override { return face_->familyName(); }
  [[nodiscard]] FontWeight weight() const override { return face_->metrics().weight; }
  [[nodiscard]] std::uint32_t glyph(char32_t character) const override;
  [[nodiscard]] double advance(std::uint32_t glyph) const override;
  [[nodiscard]] std::shared_ptr<const TextLine> shape(std::u16string_view text,
                                                      TextDirection direction) const override;

  [[nodiscard]] const QtFace& face() const { return *face_; }
  [[nodiscard]] const std::shared_ptr<const QtFace>& sharedFace() const { return face_; }
  [[nodiscard]] double size() const { return size_; }

 private:
  std::shared_ptr<const QtFace> face_;
  double size_;
  std::shared_ptr<QtTextShaper> shaper_;
};

}  // namespace bkuk::host
