#pragma once

#include <optional>
#include <vector>

#include "platform/appkit/text/TextStorageListener.h"
#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk {

/// The text that layout managers lay out: an attributed string that tells them what was edited.
class NSTextStorage : public NSMutableAttributedString {
 public:
  using NSMutableAttributedString::NSMutableAttributedString;
  explicit NSTextStorage(const NSAttributedString& text) : NSMutableAttributedString(text) {}
  ~NSTextStorage() override;

  /// In the order in which they were added, which is also that in which they are told.
  [[nodiscard]] std::vector<Ref<TextStorageListener>> layoutManagers() const;
  /// One that is there already is left where it is.
  void addLayoutManager(const Ref<TextStorageListener>& manager);
  void removeLayoutManager(const TextStorageListener& manager);

  void beginEditing() override { ++depth_; }
  /// The outermost end tells the layout managers of everything since the beginning.
  void endEditing() override;

  [[nodiscard]] std::string className() const override { return "NSTextStorage"; }

 protected:
  void didEdit(Edited what, NSRange range, std::ptrdiff_t changeInLength) override;

 private:
  struct Manager {
    Ref<TextStorageListener> listener;
    std::optional<TextStorageEdit> untold;
  };
  using Managers = std::vector<Manager>;

  [[nodiscard]] Managers::iterator find(const TextStorageListener& listener);
  void tellManagers();

  Managers managers_;
  std::size_t depth_ = 0;
  bool isTelling_ = false;
};

}  // namespace bkuk
