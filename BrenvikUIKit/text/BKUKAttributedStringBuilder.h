#pragma once

#include "BrenvikUIKit/text/BKUKTextAttributes.h"
#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk {

/// Puts a text and attributes together. What the text's own attributes say holds; these say the rest.
class BKUKAttributedStringBuilder final : public NSObject {
 public:
  [[nodiscard]] const BKUKTextAttributes& attributes() const { return attributes_; }
  void setAttributes(BKUKTextAttributes attributes);
  /// The text, perhaps with attributes of its own; absent for none. Kept as it is now.
  [[nodiscard]] const Ref<NSAttributedString>& attributedString() const { return attributedString_; }
  void setAttributedString(Ref<NSAttributedString> text);

  /// The text with all its attributes; the same object until either changes.
  [[nodiscard]] const Ref<NSAttributedString>& build();
  /// What `build` has made last, absent when something changed since.
  [[nodiscard]] const Ref<NSAttributedString>& attributedStringCache() const { return cache_; }

 private:
  BKUKTextAttributes attributes_;
  Ref<NSAttributedString> attributedString_;
  Ref<NSAttributedString> cache_;
};

}  // namespace bkuk
