#pragma once

#include "BrenvikUIKit/interaction/BKUKKeyMonitor.h"
#include "gallery/chrome/Box.h"
#include "gallery/chrome/Button.h"

namespace bkuk::gallery {

/// A key monitor with its name, what it does with which keys, and switches for what it lets pass.
class MonitorCard : public Box {
 public:
  static constexpr CGFloat height = 108;  ///< points

  /// `keys` describes the monitor's actions.
  MonitorCard(std::string name, std::string keys, Ref<BKUKKeyMonitor> monitor);

  [[nodiscard]] const Ref<BKUKKeyMonitor>& monitor() const { return monitor_; }
  [[nodiscard]] std::vector<NSView*> keyViews() const;

  void layout() override;

 protected:
  void didInit() override;

 private:
  Ref<Button> makeSwitch(std::string title, BKUKKeyMonitor::Options option);

  Ref<BKUKKeyMonitor> monitor_;
  Ref<TextLabel> name_;
  Ref<TextLabel> keys_;
  std::vector<Ref<Button>> switches_;
};

}  // namespace bkuk::gallery
