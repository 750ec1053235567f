#pragma once

#include <cstdint>
#include <functional>

#include "BrenvikUIKit/text/BKUKFontType.h"

namespace bkuk {

/// What a text is in the application's typography. The application says how large and how heavy each role is;
/// the kit has no sizes of its own.
class BKUKBrandFont {
 public:
  enum Role : std::uint8_t { h1, h2, h3, h4, h5, h6, body1, body2, button, buttonSmall, caption };

  constexpr BKUKBrandFont(Role role) : role_(role) {}
  constexpr operator Role() const { return role_; }

  /// The size of a role in points, and its type. To be set before the first one is asked for, which otherwise
  /// stops the process.
  static std::function<double(BKUKBrandFont style)>& size;
  static std::function<BKUKFontType(BKUKBrandFont style)>& type;
  /// What the application answers for this role now.
  [[nodiscard]] double askSize() const;
  [[nodiscard]] BKUKFontType askType() const;

 private:
  Role role_;
};

}  // namespace bkuk
