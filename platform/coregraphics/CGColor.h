#pragma once

#include <array>
#include <span>

#include "host/Rgba.h"
#include "platform/coregraphics/CGColorSpace.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// A colour as it is at one moment: a space, its components and alpha. Immutable; it never changes with
/// the appearance. Components are kept as given, also outside 0 to 1.
class CGColor final : public NSObject {
 public:
  /// `components` are the space's own followed by alpha; another number of them is a fatal error.
  CGColor(const Ref<CGColorSpace>& space, std::span<const CGFloat> components);

  [[nodiscard]] static Ref<CGColor> srgb(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha = 1);
  /// In the generic gray space.
  [[nodiscard]] static Ref<CGColor> gray(CGFloat white, CGFloat alpha = 1);
  [[nodiscard]] static Ref<CGColor> cmyk(CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black,
                                         CGFloat alpha = 1);
  /// Shared objects in the generic gray space.
  [[nodiscard]] static const Ref<CGColor>& black();
  [[nodiscard]] static const Ref<CGColor>& white();
  [[nodiscard]] static const Ref<CGColor>& clear();

  [[nodiscard]] const Ref<CGColorSpace>& colorSpace() const { return space_; }
  /// Alpha last.
  [[nodiscard]] std::span<const CGFloat> components() const { return {components_.data(), count_}; }
  /// Counts alpha.
  [[nodiscard]] std::size_t numberOfComponents() const { return count_; }
  [[nodiscard]] CGFloat alpha() const { return components_[count_ - 1]; }

  /// The same colour with its alpha replaced.
  [[nodiscard]] Ref<CGColor> copy(CGFloat alpha) const;
  /// The same object when it is in that space already.
  [[nodiscard]] Ref<CGColor> converted(const Ref<CGColorSpace>& space) const;
  /// What is painted: components cut to 0…1, those that are no numbers count as 0.
  [[nodiscard]] host::Rgba rgba() const;

  /// Equal when the space and all components are equal.
  bool operator==(const CGColor& other) const;
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override;
  [[nodiscard]] std::string className() const override { return "CGColor"; }

 private:
  static constexpr std::size_t maxComponents = 5;

  Ref<CGColorSpace> space_;
  std::array<CGFloat, maxComponents> components_{};
  std::size_t count_;
};

}  // namespace bkuk
