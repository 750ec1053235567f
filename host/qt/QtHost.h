#pragma once

#include "host/Host.h"
#include "host/qt/QtLoop.h"
#include "host/qt/accessibility/QtAccessibility.h"
#include "host/qt/desktop/QtDesktop.h"
#include "host/qt/drawing/QtDrawing.h"
#include "host/qt/settings/QtSettings.h"

namespace bkuk::host {

class QtApplication;

/// The desktop through Qt's Gui and DBus modules.
class QtHost final : public Host {
 public:
  QtHost();

  [[nodiscard]] Loop& loop() override { return loop_; }
  [[nodiscard]] Desktop& desktop() override { return desktop_; }
  [[nodiscard]] Drawing& drawing() override { return drawing_; }
  [[nodiscard]] Settings& settings() override { return settings_; }
  [[nodiscard]] Accessibility& accessibility() override { return accessibility_; }

 private:
  QtApplication& application_;
  QtLoop loop_;
  QtAccessibility accessibility_;
  QtDesktop desktop_;
  QtSettings settings_;
  QtDrawing drawing_;
};

}  // namespace bkuk::host
