#pragma once

#include "BrenvikUIKit/text/BKUKFontLoader.h"

namespace bkuk {

/// The family that a language brings along, and how far it moves text in it.
struct LanguageFonts {
  BKUKFontLoader::Identifiers identifiers;
  BKUKFontLoader::Offset labelTop;
  BKUKFontLoader::Offset labelBottom;
  BKUKFontLoader::Offset textFieldTop;
  BKUKFontLoader::Offset textFieldBottom;
};

/// Of the user's language at this moment; null when the application's own fonts are right for it.
[[nodiscard]] const LanguageFonts* currentLanguageFonts();

}  // namespace bkuk
