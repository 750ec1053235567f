#pragma once

#include <string_view>

#include "BrenvikUIKit/interaction/BKUKKeyMonitorStack.h"
#include "platform/appkit/NSPanel.h"

namespace bkuk {

/// A panel with key monitors that announces each change of its first responder and brings it into view. Its
/// key views are linked in reading order by themselves; it never takes the keyboard for itself.
class BKUKPanel : public NSPanel {
 public:
  using NSPanel::NSPanel;

  /// Posted after every call of `makeFirstResponder`, with the responder that was passed in as object.
  static constexpr std::string_view firstResponderChange = "firstResponderChange";

  /// Absent only before the panel is complete, or after it was set so.
  [[nodiscard]] const Ref<BKUKKeyMonitorStack>& keyMonitorStack() const { return keyMonitorStack_; }
  void setKeyMonitorStack(Ref<BKUKKeyMonitorStack> stack) { keyMonitorStack_ = std::move(stack); }

  [[nodiscard]] bool acceptsFirstResponder() const override { return false; }
  bool makeFirstResponder(NSResponder* responder) override;
  [[nodiscard]] std::string className() const override { return "BKUKPanel"; }

 protected:
  void didInit() override;

 private:
  Ref<BKUKKeyMonitorStack> keyMonitorStack_;
};

}  // namespace bkuk
