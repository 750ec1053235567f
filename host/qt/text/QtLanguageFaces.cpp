#include "host/qt/text/QtLanguageFaces.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <initializer_list>
#include <vector>

namespace bkuk::host {

namespace {

struct LanguageFamilies {
  std::string_view language;
  QFontDatabase::WritingSystem script;
  std::vector<const char*> families;  // best first
};

// Longer tags before those that they begin with.
const std::vector<LanguageFamilies>& table() {
  using Database = QFontDatabase;
  static const auto& entries = *new std::vector<LanguageFamilies>{
      {"ja", Database::Japanese, {"Noto Sans CJK JP", "Noto Sans JP", "Source Han Sans JP", "IPAexGothic"}},
      {"ko", Database::Korean, {"Noto Sans CJK KR", "Noto Sans KR", "Source Han Sans KR", "NanumGothic"}},
      {"zh-Hant-HK", Database::TraditionalChinese, {"Noto Sans CJK HK", "Noto Sans CJK TC", "Noto Sans TC"}},
      {"zh-Hant", Database::TraditionalChinese, {"Noto Sans CJK TC", "Noto Sans TC", "WenQuanYi Zen Hei"}},
      {"zh-TW", Database::TraditionalChinese, {"Noto Sans CJK TC", "Noto Sans TC", "WenQuanYi Zen Hei"}},
      {"zh-HK", Database::TraditionalChinese, {"Noto Sans CJK HK", "Noto Sans CJK TC", "Noto Sans TC"}},
      {"zh", Database::SimplifiedChinese, {"Noto Sans CJK SC", "Noto Sans SC", "WenQuanYi Zen Hei"}},
      {"ar", Database::Arabic, {"Noto Sans Arabic UI", "Noto Sans Arabic"}},
      {"fa", Database::Arabic, {"Noto Sans Arabic UI", "Noto Sans Arabic"}},
      {"he", Database::Hebrew, {"Noto Sans Hebrew"}},
      {"th", Database::Thai, {"Noto Sans Thai UI", "Noto Sans Thai"}},
      {"hi", Database::Devanagari, {"Noto Sans Devanagari UI", "Noto Sans Devanagari"}},
  };
  return entries;
}

const LanguageFamilies* entryFor(std::string_view language) {
  for (const auto& entry : table()) {
    const auto rest = language.starts_with(entry.language) ? language.substr(entry.language.size()) : "?";
    if (rest.empty() || rest[0] == '-') return &entry;
  }
  return nullptr;
}

// A plain face reads best in an interface.
int suitability(const QString& family) {
  const bool isMono = family.contains(u"Mono", Qt::CaseInsensitive);
  const bool isSerif = family.contains(u"Serif") || family.contains(u"Mincho") || family.contains(u"Ming");
  const bool isPlain = family.contains(u"Sans") || family.contains(u"Gothic") || family.contains(u"Hei");
  return (isPlain ? 2 : 0) - (isSerif ? 2 : 0) - (isMono ? 4 : 0);
}

QString bestFamily(const LanguageFamilies& entry) {
  const auto installed = QFontDatabase::families(entry.script);
  const auto all = QFontDatabase::families();
  for (const char* family : entry.families) {
    if (all.contains(QLatin1String(family))) return QLatin1String(family);
  }
  // The desktop's own face, where it covers the language, keeps to the look of the rest.
  if (installed.isEmpty() || installed.contains(QGuiApplication::font().family())) return {};
  QString best = installed.first();
  for (const auto& family : installed) {
    if (suitability(family) > suitability(best)) best = family;
  }
  return best;
}

}  // namespace

std::optional<QFont> fontForLanguage(std::string_view language, FontWeight weight) {
  const auto* entry = entryFor(language);
  if (!entry) return std::nullopt;
  const QString family = bestFamily(*entry);
  if (family.isEmpty()) return std::nullopt;
  QFont font(family);
  font.setWeight(static_cast<QFont::Weight>(weight));
  return font;
}

}  // namespace bkuk::host
