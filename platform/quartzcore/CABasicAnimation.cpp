#include "platform/quartzcore/CABasicAnimation.h"

#include "platform/quartzcore/CAInterpolation.h"
#include "platform/quartzcore/CALayer.h"

namespace bkuk {

namespace {

bool isSet(const CAValue& value) { return !std::holds_alternative<std::monostate>(value); }

}  // namespace

void CABasicAnimation::resolveStart(const CALayer& shown) {
  if (isSet(from_)) return;
  if (isSet(to_) && isSet(by_)) {
    from_ = moved(to_, by_, -1);
  } else {
    from_ = shown.value(keyPath_);
  }
}

void CABasicAnimation::apply(CALayer& shown, const CALayer& model, CGFloat progress) const {
  auto end = to_;
  if (!isSet(end)) end = isSet(by_) ? moved(from_, by_, 1) : model.value(keyPath_);
  shown.setValue(interpolated(from_, end, progress), keyPath_);
}

}  // namespace bkuk
