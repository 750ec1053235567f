#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/foundation/NSObject.h"

namespace bkuk {

enum class CGColorSpaceModel { monochrome = 0, rgb = 1, cmyk = 2 };

/// What the components of a colour mean. There is one object per space, so spaces compare by identity.
///
/// The three RGB spaces carry identical numbers, as the two gray ones do: only the name differs.
class CGColorSpace final : public NSObject {
 public:
  [[nodiscard]] static const Ref<CGColorSpace>& sRGB();
  [[nodiscard]] static const Ref<CGColorSpace>& deviceRGB();
  /// Calibrated RGB.
  [[nodiscard]] static const Ref<CGColorSpace>& genericRGB();
  [[nodiscard]] static const Ref<CGColorSpace>& genericGrayGamma2_2();
  [[nodiscard]] static const Ref<CGColorSpace>& deviceGray();
  [[nodiscard]] static const Ref<CGColorSpace>& deviceCMYK();

  [[nodiscard]] std::string_view name() const { return name_; }
  [[nodiscard]] CGColorSpaceModel model() const { return model_; }
  /// Without alpha.
  [[nodiscard]] std::size_t numberOfComponents() const;

  [[nodiscard]] std::string className() const override { return "CGColorSpace"; }

 private:
  static const Ref<CGColorSpace>& shared(std::string_view name, CGColorSpaceModel model);
  CGColorSpace(std::string_view name, CGColorSpaceModel model) : name_(name), model_(model) {}

  std::string_view name_;
  CGColorSpaceModel model_;
};

}  // namespace bkuk
