#include "BrenvikUIKit/text/BKUKBrandFont.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr const char* unit = "BrenvikUIKit/BKUKBrandFont";

}  // namespace

std::function<double(BKUKBrandFont)> BKUKBrandFont::size = [](BKUKBrandFont) -> double {
  fatal("Not set", unit, 109);
};

std::function<BKUKFontType(BKUKBrandFont)> BKUKBrandFont::type = [](BKUKBrandFont) -> BKUKFontType {
  fatal("Not set", unit, 110);
};

}  // namespace bkuk
