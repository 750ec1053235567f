#include "BrenvikUIKit/text/BKUKFontConfig.h"

namespace bkuk {

BKUKFontConfig& BKUKFontConfig::shared() {
  static auto& config = *new BKUKFontConfig;
  return config;
}

}  // namespace bkuk
