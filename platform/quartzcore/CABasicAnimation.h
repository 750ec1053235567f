#pragma once

#include "platform/quartzcore/CAAnimation.h"
#include "platform/quartzcore/CAValue.h"

namespace bkuk {

/// Moves one property from a value to another.
///
/// Without `fromValue` it starts at what is shown when it is added; without `toValue` it ends at the layer's
/// own value, whatever that is by then; `byValue` gives the distance where one of the ends is missing.
/// Numbers, geometry, colours, transforms, lists of them and paths of the same elements move component by
/// component; any other value changes at the end.
class CABasicAnimation final : public CAAnimation {
 public:
  explicit CABasicAnimation(std::string_view keyPath) : keyPath_(keyPath) {}
  CABasicAnimation(const CABasicAnimation& other) = default;

  [[nodiscard]] const std::string& keyPath() const { return keyPath_; }
  void setKeyPath(std::string_view keyPath) { keyPath_ = keyPath; }
  [[nodiscard]] const CAValue& fromValue() const { return from_; }
  void setFromValue(CAValue value) { from_ = std::move(value); }
  [[nodiscard]] const CAValue& toValue() const { return to_; }
  void setToValue(CAValue value) { to_ = std::move(value); }
  [[nodiscard]] const CAValue& byValue() const { return by_; }
  void setByValue(CAValue value) { by_ = std::move(value); }

  [[nodiscard]] Ref<CAAnimation> copy() const override { return make<CABasicAnimation>(*this); }
  [[nodiscard]] std::string_view animatedKey() const override { return keyPath_; }
  void resolveStart(const CALayer& shown) override;
  void apply(CALayer& shown, const CALayer& model, CGFloat progress) const override;
  [[nodiscard]] std::string className() const override { return "CABasicAnimation"; }

 private:
  std::string keyPath_;
  CAValue from_;
  CAValue to_;
  CAValue by_;
};

}  // namespace bkuk
