#include "BrenvikUIKit/text/BKUKBrandFont.h"

#include <string_view>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr const char* unit = "BrenvikUIKit/BKUKBrandFont";
constexpr std::string_view noSize =
    "BKUKBrandFont: no size; assign a function that answers the points of a role";
constexpr std::string_view noType =
    "BKUKBrandFont: no type; assign a function that answers the type of a role";

}  // namespace

std::function<double(BKUKBrandFont)>& BKUKBrandFont::size =
    *new std::function<double(BKUKBrandFont)>([](BKUKBrandFont) -> double {
      reportMistake(noSize);
      fatal("Not set", unit, 109);
    });

std::function<BKUKFontType(BKUKBrandFont)>& BKUKBrandFont::type =
    *new std::function<BKUKFontType(BKUKBrandFont)>([](BKUKBrandFont) -> BKUKFontType {
      reportMistake(noType);
      fatal("Not set", unit, 110);
    });

double BKUKBrandFont::askSize() const { return required(size, noSize)(*this); }

BKUKFontType BKUKBrandFont::askType() const { return required(type, noType)(*this); }

}  // namespace bkuk
