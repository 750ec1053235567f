#include "BrenvikUIKit/colour/BKUKThemedColor.h"

#include <utility>

#include "BrenvikUIKit/colour/BKUKNSApplication+Extensions.h"
#include "platform/appkit/NSApplication.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSCoder.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "BrenvikUIKit/BKUKThemedColor";
constexpr std::string_view anyKey = "any";
constexpr std::string_view darkKey = "dark";

const NSCodingRegistration registration("BKUKThemedColor",
                                        [](NSCoder& coder) { return BKUKThemedColor::decoded(coder); });

bool areEqual(const Ref<NSColor>& a, const Ref<NSColor>& b) { return a && b ? a->isEqual(b.get()) : a == b; }

}  // namespace

BKUKThemedColor::BKUKThemedColor(Ref<NSColor> any, Ref<NSColor> dark)
    : anyColor_(std::move(any)), darkColor_(dark ? std::move(dark) : anyColor_) {
  if (!anyColor_)
    trap("BKUKThemedColor: no color for the light appearance; give make<BKUKThemedColor>(any, dark) one");
}

Ref<BKUKThemedColor> BKUKThemedColor::bySwapping(const BKUKThemedColor& source) {
  return make<BKUKThemedColor>(source.darkColor_, source.anyColor_);
}

Ref<BKUKThemedColor> BKUKThemedColor::decoded(NSCoder& coder) {
  const auto any = coder.decodeObject<NSColor>(anyKey);
  const auto dark = coder.decodeObject<NSColor>(darkKey);
  if (!any || !dark) return nullptr;
  return make<BKUKThemedColor>(any, dark);
}

Ref<BKUKThemedColor> BKUKThemedColor::init() {
  fatal("init has not been implemented, use init(any:dark:) instead", unit);
}

Ref<BKUKThemedColor> BKUKThemedColor::init(const Ref<NSObject>&, std::string_view) {
  fatal("init(pasteboardPropertyList:ofType:) has not been implemented, use init(any:dark:) instead", unit);
}

const NSColor& BKUKThemedColor::current() const {
  if (!anyColor_ || !darkColor_) fatal("Please use init(any:dark:)", unit);
  return isDarkMode(NSApplication::shared()) ? *darkColor_ : *anyColor_;
}

Ref<NSColor> BKUKThemedColor::withAlphaComponent(CGFloat alpha) const {
  if (!anyColor_ || !darkColor_) fatal("Please use init(any:dark:)", unit);
  const auto any = anyColor_->withAlphaComponent(alpha);
  const auto dark = darkColor_->withAlphaComponent(alpha);
  return makeOfSameClass(any, dark ? dark : any);
}

Ref<BKUKThemedColor> BKUKThemedColor::makeOfSameClass(const Ref<NSColor>& any,
                                                      const Ref<NSColor>& dark) const {
  return make<BKUKThemedColor>(any, dark);
}

bool BKUKThemedColor::isEqual(const NSObject* other) const {
  const auto* themed = dynamic_cast<const BKUKThemedColor*>(other);
  return themed && areEqual(anyColor_, themed->anyColor_) && areEqual(darkColor_, themed->darkColor_);
}

std::size_t BKUKThemedColor::hash() const {
  const std::size_t any = anyColor_ ? anyColor_->hash() : 0;
  const std::size_t dark = darkColor_ ? darkColor_->hash() : 0;
  return any * 31 + dark;
}

void BKUKThemedColor::encode(NSCoder& coder) const {
  coder.encode(anyColor_, anyKey);
  coder.encode(darkColor_, darkKey);
}

}  // namespace bkuk
