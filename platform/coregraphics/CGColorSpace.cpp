#include "platform/coregraphics/CGColorSpace.h"

#include "platform/foundation/Permanent.h"

namespace bkuk {

const Ref<CGColorSpace>& CGColorSpace::sRGB() {
  static const auto& space = shared("sRGB", CGColorSpaceModel::rgb);
  return space;
}

const Ref<CGColorSpace>& CGColorSpace::deviceRGB() {
  static const auto& space = shared("deviceRGB", CGColorSpaceModel::rgb);
  return space;
}

const Ref<CGColorSpace>& CGColorSpace::genericRGB() {
  static const auto& space = shared("genericRGB", CGColorSpaceModel::rgb);
  return space;
}

const Ref<CGColorSpace>& CGColorSpace::genericGrayGamma2_2() {
  static const auto& space = shared("genericGrayGamma2_2", CGColorSpaceModel::monochrome);
  return space;
}

const Ref<CGColorSpace>& CGColorSpace::deviceGray() {
  static const auto& space = shared("deviceGray", CGColorSpaceModel::monochrome);
  return space;
}

const Ref<CGColorSpace>& CGColorSpace::deviceCMYK() {
  static const auto& space = shared("deviceCMYK", CGColorSpaceModel::cmyk);
  return space;
}

const Ref<CGColorSpace>& CGColorSpace::shared(std::string_view name, CGColorSpaceModel model) {
  return permanent([&] { return Ref<CGColorSpace>::adopt(new CGColorSpace(name, model)); });
}

std::size_t CGColorSpace::numberOfComponents() const {
  switch (model_) {
    case CGColorSpaceModel::monochrome:
      return 1;
    case CGColorSpaceModel::rgb:
      return 3;
    case CGColorSpaceModel::cmyk:
      return 4;
  }
  return 0;
}

}  // namespace bkuk
