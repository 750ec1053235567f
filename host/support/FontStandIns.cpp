#include "host/support/FontStandIns.h"

namespace bkuk::host {

namespace {

constexpr FontWeight regular = 400;

struct Family {
  std::string_view prefix;
  std::string_view language;
};

constexpr Family families[] = {
    {"HiraginoSans-", "ja"},       {"PingFangSC-", "zh-Hans"},  {"PingFangTC-", "zh-Hant"},
    {"PingFangHK-", "zh-Hant-HK"}, {"AppleSDGothicNeo-", "ko"},
};

struct Weight {
  std::string_view name;
  FontWeight weight;
};

constexpr Weight weights[] = {
    {"W0", 100},     {"W1", 100},         {"W2", 300},         {"W3", 350},    {"W4", 400},
    {"W5", 500},     {"W6", 700},         {"W7", 700},         {"W8", 800},    {"W9", 900},
    {"Thin", 100},   {"Ultralight", 200}, {"UltraLight", 200}, {"Light", 300}, {"Regular", 400},
    {"Medium", 500}, {"Semibold", 600},   {"SemiBold", 600},   {"Bold", 700},  {"ExtraBold", 800},
    {"Heavy", 900},
};

FontWeight weightNamed(std::string_view name) {
  for (const auto& [each, weight] : weights) {
    if (each == name) return weight;
  }
  return regular;
}

}  // namespace

std::optional<FontStandIn> standInFor(std::string_view postScriptName) {
  for (const auto& [prefix, language] : families) {
    if (!postScriptName.starts_with(prefix)) continue;
    return FontStandIn{language, weightNamed(postScriptName.substr(prefix.size()))};
  }
  return std::nullopt;
}

}  // namespace bkuk::host
