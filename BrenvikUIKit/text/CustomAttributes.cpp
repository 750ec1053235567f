#include "BrenvikUIKit/text/CustomAttributes.h"

#include <algorithm>
#include <vector>

#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk {

namespace {

struct CustomRun {
  NSRange range;
  NSAttributeDictionary::Entry attribute;
};

bool isPlatforms(const NSAttributedStringKey& key) {
  const NSAttributedStringKey known[] = {NSFontAttributeName,
                                         NSForegroundColorAttributeName,
                                         NSBackgroundColorAttributeName,
                                         NSParagraphStyleAttributeName,
                                         NSKernAttributeName,
                                         NSUnderlineStyleAttributeName,
                                         NSUnderlineColorAttributeName,
                                         NSAttachmentAttributeName,
                                         NSLinkAttributeName,
                                         NSBaselineOffsetAttributeName};
  return std::ranges::find(known, key) != std::end(known);
}

// In the order of the text; those of one stretch in the order of their names.
std::vector<CustomRun> customRuns(const NSAttributedString& text) {
  std::vector<CustomRun> runs;
  text.enumerateAttributes({0, text.length()}, NSAttributedString::Options::none,
                           [&](const auto& attributes, NSRange range, bool&) {
                             const auto first = static_cast<std::ptrdiff_t>(runs.size());
                             for (const auto& entry : attributes.entries()) {
                               if (!isPlatforms(entry.first)) runs.push_back({range, entry});
                             }
                             std::sort(runs.begin() + first, runs.end(), [](const auto& a, const auto& b) {
                               return a.attribute.first.text() < b.attribute.first.text();
                             });
                           });
  return runs;
}

}  // namespace

Ref<NSAttributedString> replacingCustomAttributes(const NSAttributedString& shown,
                                                  const NSAttributedString& text,
                                                  BKUKCustomAttributeOperator& replacer) {
  const auto runs = customRuns(shown);
  if (runs.empty()) return nullptr;
  const auto copy = text.mutableCopy();
  bool isReplaced = false;
  std::size_t untouched = text.length();  // nothing before it has been replaced
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    // One replacement for a stretch: what it had besides is gone with it.
    if (NSMaxRange(run->range) > untouched) continue;
    const auto& [key, value] = run->attribute;
    const auto replacement = replacer.replace(shown.attributedSubstring(run->range), key, value);
    if (!replacement) continue;
    copy->replaceCharacters(run->range, *replacement);
    untouched = run->range.location;
    isReplaced = true;
  }
  return isReplaced ? copy->copy() : nullptr;
}

}  // namespace bkuk
