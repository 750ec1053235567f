#pragma once

#include "BrenvikUIKit/text/BKUKFontType.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// What a font is remembered under. Keys are equal when their hashes are: different types never have the same
/// hash at one size, nor different sizes at one type.
class FontKey final : public NSObject {
 public:
  /// `size` in points; 0 and −0 are the same.
  FontKey(BKUKFontType type, double size) : type_(type), size_(size) {}
  /// There is no key without type and size: it stops the process.
  [[noreturn]] static Ref<FontKey> init();

  [[nodiscard]] BKUKFontType type() const { return type_; }
  [[nodiscard]] double size() const { return size_; }

  [[nodiscard]] std::size_t hash() const override;
  [[nodiscard]] bool isEqual(const NSObject* other) const override;

 private:
  BKUKFontType type_;
  double size_;
};

}  // namespace bkuk
