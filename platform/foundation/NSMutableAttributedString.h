#pragma once

#include <cstddef>
#include <string_view>

#include "platform/foundation/NSAttributedString.h"

namespace bkuk {

/// An attributed string that can be changed.
class NSMutableAttributedString : public NSAttributedString {
 public:
  using NSAttributedString::NSAttributedString;
  explicit NSMutableAttributedString(const NSAttributedString& other) : NSAttributedString(other) {}

  /// The new code units take the attributes of the first that they replace; where they replace none, of the
  /// unit before; at the start, of the unit behind; in an empty text, none.
  void replaceCharacters(NSRange in, const NSString& with);
  /// The new code units bring their own attributes. The text may be this one.
  void replaceCharacters(NSRange in, const NSAttributedString& with);
  void deleteCharacters(NSRange in) { replaceCharacters(in, NSString()); }
  void insert(const NSAttributedString& text, std::size_t at) { replaceCharacters({at, 0}, text); }
  void append(const NSAttributedString& text) { replaceCharacters({length(), 0}, text); }
  /// The quick way to build a text from pieces: no object is made for the piece.
  void append(std::u16string_view units, const NSAttributeDictionary& attributes);
  void setAttributedString(const NSAttributedString& text) { replaceCharacters({0, length()}, text); }
  /// Makes room for a text of so many code units.
  void reserve(std::size_t length);

  /// In place of all that are there.
  void setAttributes(const NSAttributeDictionary& attributes, NSRange range);
  /// Onto what is there.
  void addAttribute(const NSAttributedStringKey& key, const NSAttributeValue& value, NSRange range);
  void addAttributes(const NSAttributeDictionary& attributes, NSRange range);
  void removeAttribute(const NSAttributedStringKey& key, NSRange range);

  /// Between the two, which nest, edits belong together: whoever follows them hears of them once. An end
  /// without a beginning is a programming error.
  virtual void beginEditing() {}
  virtual void endEditing() {}

  [[nodiscard]] std::string className() const override { return "NSMutableAttributedString"; }

 protected:
  /// What an edit changed.
  enum class Edited { attributes, characters };
  /// Called after each edit. `range` is what the edit left, `changeInLength` how many code units longer the
  /// text is than before.
  virtual void didEdit(Edited what, NSRange range, std::ptrdiff_t changeInLength);

 private:
  using Piece = AttributeRuns::Piece;

  [[nodiscard]] NSAttributeDictionary attributesForReplacement(NSRange range) const;
  void replace(NSRange range, std::u16string_view units, std::span<const Piece> pieces);
  template <typename Change>
  void changeAttributes(NSRange range, Change change);
};

}  // namespace bkuk
