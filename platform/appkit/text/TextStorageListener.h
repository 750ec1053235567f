#pragma once

#include <cstddef>

#include "platform/foundation/NSObject.h"
#include "platform/foundation/NSRange.h"

namespace bkuk {

class NSTextStorage;

/// All that happened to a text storage between the beginning and the end of its editing.
struct TextStorageEdit {
  bool editedCharacters = false;  ///< only attributes when false
  NSRange editedRange{};          ///< in the text as it is now: everything outside is as it was
  std::ptrdiff_t changeInLength = 0;
};

/// What a text storage tells of its edits: the base of `NSLayoutManager`. The storage holds its listeners.
class TextStorageListener : public NSObject {
 public:
  /// Called with the storage when the listener is added to it and with null when it is removed or the storage
  /// goes. The listener must not keep the storage alive.
  virtual void setTextStorage(NSTextStorage* storage) = 0;
  /// Called once per edit, after it. May edit the storage, which is then told as an edit of its own.
  virtual void processEditing(NSTextStorage& storage, const TextStorageEdit& edit) = 0;
};

}  // namespace bkuk
