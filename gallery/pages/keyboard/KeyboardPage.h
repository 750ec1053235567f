#pragma once

#include "BrenvikUIKit/interaction/BKUKKeyFocusController.h"
#include "gallery/GalleryPage.h"
#include "gallery/cards/Specimen.h"
#include "gallery/chrome/LogCard.h"
#include "gallery/pages/keyboard/MonitorCard.h"

namespace bkuk::gallery {

/// Key monitors stacked on the gallery's own window, which of them hears of a key and who consumes it, and a
/// control for each preset of the focus controller.
class KeyboardPage : public GalleryPage {
 public:
  [[nodiscard]] CGFloat heightForWidth(CGFloat width) const override;
  [[nodiscard]] std::vector<NSView*> keyViews() const override;
  void layout() override;
  /// The monitors are on the stack while the page is in the window.
  void viewDidMoveToWindow() override;

 protected:
  void didInit() override;

 private:
  struct PresetRow {
    Ref<Specimen> specimen;
    Ref<Button> button;
  };

  void makeMonitors();
  void makePresets();
  void addPreset(std::string name, std::string remark, BKUKKeyFocusController::Preset preset);
  /// An action that writes down that `who` heard of `key`.
  BKUKKeyMonitor::Action heard(std::string who, std::string key, bool consumes);

  Ref<TextLabel> stackHeading_;
  std::vector<Ref<MonitorCard>> monitors_;  // the top one first
  Ref<LogCard> log_;
  Ref<TextLabel> presetsHeading_;
  std::vector<PresetRow> presets_;
};

}  // namespace bkuk::gallery
