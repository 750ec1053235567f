#pragma once

#include "platform/appkit/text/NSLayoutManager.h"
#include "platform/appkit/text/NSTextContainer.h"
#include "platform/appkit/text/NSTextStorage.h"
#include "platform/foundation/NSStringDrawingOptions.h"

namespace bkuk {

/// A text with all that lays it out: a storage, its layout manager and that one's container, which has no
/// padding. The text is edited through the storage and asked where its characters are through the manager;
/// the parts may be handed out, and live on without the stack. Lengths are in points, from the container's
/// upper left corner, y down.
class TextStack {
 public:
  explicit TextStack(Ref<NSLayoutManager> manager = make<NSLayoutManager>());

  [[nodiscard]] const Ref<NSTextStorage>& storage() const { return storage_; }
  [[nodiscard]] const Ref<NSLayoutManager>& manager() const { return manager_; }
  [[nodiscard]] const Ref<NSTextContainer>& container() const { return container_; }

  /// Gives the text a width, 0 or less for no limit, and any height, in an interface of that direction. It is
  /// laid out when somebody asks for what depends on it.
  void setLayout(CGFloat width, NSUserInterfaceLayoutDirection direction) const;
  /// The size that the text takes at a width, 0 or less for no limit. Changes nothing, whatever the text is
  /// laid out to. `options` say which height a line has; lines begin at the top.
  [[nodiscard]] NSSize measure(CGFloat width, NSStringDrawingOptions options = {}) const;
  /// Around the lines as they are laid out.
  [[nodiscard]] NSRect usedRect() const { return manager_->usedRect(*container_); }
  /// What of the text the container shows.
  [[nodiscard]] NSRange shownRange() const { return manager_->glyphRange(*container_); }
  /// Draws what is shown into the current flipped context, the container's corner at `at`.
  void draw(NSPoint at) const;

 private:
  Ref<NSTextStorage> storage_ = make<NSTextStorage>();
  Ref<NSLayoutManager> manager_;
  Ref<NSTextContainer> container_ = make<NSTextContainer>();
};

}  // namespace bkuk
