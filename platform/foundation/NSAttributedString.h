#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "platform/foundation/AttributeRuns.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSString.h"
#include "platform/foundation/NSStringDrawingOptions.h"

namespace bkuk {

class NSMutableAttributedString;

/// How attributes are enumerated: options are added up.
enum class NSAttributedStringEnumerationOptions : std::uint32_t {
  none = 0,
  longestEffectiveRangeNotRequired = 1u << 20,  ///< stretches with equal attributes may come in parts
};

/// A text whose code units have attributes. Indexes and ranges count UTF-16 code units; one beyond the end is
/// a programming error. Immutable unless it is an `NSMutableAttributedString`.
class NSAttributedString : public NSObject {
 public:
  using Options = NSAttributedStringEnumerationOptions;
  /// Setting `stop` ends the enumeration.
  using AttributesVisitor =
      std::function<void(const NSAttributeDictionary& attributes, NSRange range, bool& stop)>;
  /// `value` is null where the attribute is absent.
  using AttributeVisitor = std::function<void(const NSAttributeValue* value, NSRange range, bool& stop)>;

  NSAttributedString() = default;
  explicit NSAttributedString(NSString string, const NSAttributeDictionary& attributes = {});
  explicit NSAttributedString(const NSAttributedString& other);

  [[nodiscard]] const NSString& string() const { return string_; }
  [[nodiscard]] std::size_t length() const { return string_.length(); }

  /// The attributes at one index, and by `effectiveRange`, unless null, a range around it that has them too,
  /// not always the longest. Valid until the string changes.
  [[nodiscard]] const NSAttributeDictionary& attributes(std::size_t at,
                                                        NSRange* effectiveRange = nullptr) const;
  /// The longest such range within `inRange`, which must hold the index.
  [[nodiscard]] const NSAttributeDictionary& attributes(std::size_t at, NSRange& longestEffectiveRange,
                                                        NSRange inRange) const;
  /// One attribute at one index; null when it is absent.
  [[nodiscard]] const NSAttributeValue* attribute(const NSAttributedStringKey& key, std::size_t at,
                                                  NSRange* effectiveRange = nullptr) const;

  /// Visits the range in order, one stretch of equal attributes after the other. The visitor may change the
  /// string: what it visits next is what is there then.
  void enumerateAttributes(NSRange in, Options options, const AttributesVisitor& visit) const;
  /// The same for one attribute: a stretch ends where its value changes.
  void enumerateAttribute(const NSAttributedStringKey& key, NSRange in, Options options,
                          const AttributeVisitor& visit) const;
  [[nodiscard]] bool containsAttachments() const;

  // Measuring and drawing, in points. Part of the application kit.

  /// Of the text with its own line breaks only.
  [[nodiscard]] NSSize size() const;
  /// Around the text when it is set into that size; 0 or less in an axis means no limit along it. Not
  /// rounded. Text without a font is set in the desktop's interface face at 12 points. Empty text has no
  /// size.
  [[nodiscard]] NSRect boundingRect(NSSize with, NSStringDrawingOptions options) const;
  /// Into the current flipped context, wrapped at the width of the rectangle, from its upper edge; what does
  /// not fit is left out. Without a context nothing is drawn.
  void draw(NSRect in) const;
  /// The same with the upper left corner at a point and no limits.
  void draw(NSPoint at) const { draw(NSRect(at, NSSize{})); }

  [[nodiscard]] Ref<NSAttributedString> attributedSubstring(NSRange from) const;
  /// A string that does not change with this one.
  [[nodiscard]] Ref<NSAttributedString> copy() const;
  [[nodiscard]] Ref<NSMutableAttributedString> mutableCopy() const;

  /// By value: code units and attributes, however either came about.
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override { return std::hash<NSString>()(string_); }
  [[nodiscard]] std::string className() const override { return "NSAttributedString"; }

 private:
  friend class NSMutableAttributedString;

  void check(NSRange range) const;
  template <typename Same, typename Visit>
  void visitStretches(NSRange in, Options options, Same isSame, Visit visit) const;

  NSString string_;
  AttributeRuns runs_;
};

}  // namespace bkuk
