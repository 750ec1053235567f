#include "platform/foundation/NSAttributedString.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk {

namespace {

bool areEqual(const NSAttributeValue* a, const NSAttributeValue* b) { return a == b || (a && b && *a == *b); }

}  // namespace

NSAttributedString::NSAttributedString(NSString string, const NSAttributeDictionary& attributes)
    : string_(std::move(string)) {
  runs_.append(length(), attributes);
}

NSAttributedString::NSAttributedString(const NSAttributedString& other)
    : string_(other.string_), runs_(other.runs_) {}

void NSAttributedString::check(NSRange range) const {
  if (NSMaxRange(range) > length()) fatal("Range is out of bounds", "NSAttributedString");
}

const NSAttributeDictionary& NSAttributedString::attributes(std::size_t at, NSRange* effectiveRange) const {
  if (at >= length()) fatal("Index is out of bounds", "NSAttributedString");
  const auto found = runs_.find(at);
  if (effectiveRange) *effectiveRange = found.range;
  return found.attributes;
}

const NSAttributeDictionary& NSAttributedString::attributes(std::size_t at, NSRange& longestEffectiveRange,
                                                            NSRange inRange) const {
  check(inRange);
  if (!NSLocationInRange(at, inRange)) fatal("Index is outside its range", "NSAttributedString");
  NSRange run;
  const auto& result = attributes(at, &run);
  std::size_t start = run.location;
  std::size_t end = NSMaxRange(run);
  while (start > inRange.location && attributes(start - 1, &run) == result) start = run.location;
  while (end < NSMaxRange(inRange) && attributes(end, &run) == result) end = NSMaxRange(run);
  start = std::max(start, inRange.location);
  longestEffectiveRange = {start, std::min(end, NSMaxRange(inRange)) - start};
  return result;
}

const NSAttributeValue* NSAttributedString::attribute(const NSAttributedStringKey& key, std::size_t at,
                                                      NSRange* effectiveRange) const {
  return attributes(at, effectiveRange).find(key);
}

template <typename Same, typename Visit>
void NSAttributedString::visitStretches(NSRange in, Options options, Same isSame, Visit visit) const {
  check(in);
  const Ref<const NSAttributedString> self(this);
  const bool joins = options != Options::longestEffectiveRangeNotRequired;
  bool stop = false;
  for (std::size_t at = in.location; !stop;) {
    const std::size_t limit = std::min(NSMaxRange(in), length());
    if (at >= limit) return;
    NSRange run;
    const NSAttributeDictionary here = attributes(at, &run);
    std::size_t end = NSMaxRange(run);
    while (joins && end < limit && isSame(attributes(end, &run), here)) end = NSMaxRange(run);
    end = std::min(end, limit);
    visit(here, NSRange{at, end - at}, stop);
    at = end;
  }
}

void NSAttributedString::enumerateAttributes(NSRange in, Options options,
                                             const AttributesVisitor& visit) const {
  required(visit, "NSAttributedString: enumerateAttributes without a block");
  visitStretches(in, options, std::equal_to<NSAttributeDictionary>(), visit);
}

void NSAttributedString::enumerateAttribute(const NSAttributedStringKey& key, NSRange in, Options options,
                                            const AttributeVisitor& visit) const {
  required(visit, "NSAttributedString: enumerateAttribute without a block");
  const auto isSame = [&](const auto& a, const auto& b) { return areEqual(a.find(key), b.find(key)); };
  visitStretches(in, options, isSame, [&](const auto& attributes, NSRange range, bool& stop) {
    visit(attributes.find(key), range, stop);
  });
}

bool NSAttributedString::containsAttachments() const {
  bool contains = false;
  enumerateAttributes({0, length()}, Options::longestEffectiveRangeNotRequired,
                      [&](const auto& attributes, NSRange, bool& stop) {
                        stop = contains = attributes.find(NSAttachmentAttributeName) != nullptr;
                      });
  return contains;
}

Ref<NSAttributedString> NSAttributedString::attributedSubstring(NSRange from) const {
  check(from);
  auto part = make<NSAttributedString>();
  part->string_ = string_.substring(from);
  part->runs_.replace({}, runs_.pieces(from));
  return part;
}

Ref<NSAttributedString> NSAttributedString::copy() const { return make<NSAttributedString>(*this); }

Ref<NSMutableAttributedString> NSAttributedString::mutableCopy() const {
  return make<NSMutableAttributedString>(*this);
}

bool NSAttributedString::isEqual(const NSObject* other) const {
  if (this == other) return true;
  const auto* text = dynamic_cast<const NSAttributedString*>(other);
  if (!text || string_ != text->string_) return false;
  for (std::size_t at = 0; at < length();) {
    NSRange mine;
    NSRange theirs;
    if (attributes(at, &mine) != text->attributes(at, &theirs)) return false;
    at = std::min(NSMaxRange(mine), NSMaxRange(theirs));
  }
  return true;
}

}  // namespace bkuk
