#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/Text.h"
#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// A face at a size. Immutable.
class CTFont final : public NSObject {
 public:
  /// The desktop's interface face. `weight` is on the scale of the OpenType weight class.
  [[nodiscard]] static Ref<CTFont> systemFont(CGFloat size, host::FontWeight weight = 400);
  /// The face of that PostScript name, empty when there is none.
  [[nodiscard]] static Ref<CTFont> font(std::string_view postScriptName, CGFloat size);

  explicit CTFont(std::shared_ptr<const host::Font> font, CGFloat size);

  [[nodiscard]] CGFloat size() const { return size_; }
  [[nodiscard]] std::string postScriptName() const { return font_->postScriptName(); }
  [[nodiscard]] CGFloat ascent() const { return metrics_.ascent; }
  /// Positive below the baseline.
  [[nodiscard]] CGFloat descent() const { return metrics_.descent; }
  [[nodiscard]] CGFloat leading() const { return metrics_.leading; }
  [[nodiscard]] CGFloat capHeight() const { return metrics_.capHeight; }
  [[nodiscard]] CGFloat xHeight() const { return metrics_.xHeight; }

  [[nodiscard]] const host::Font& hostFont() const { return *font_; }

  [[nodiscard]] std::string className() const override { return "CTFont"; }

 private:
  std::shared_ptr<const host::Font> font_;
  host::FontMetrics metrics_;
  CGFloat size_;
};

}  // namespace bkuk
