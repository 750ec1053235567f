#pragma once

#include <cmath>
#include <gtest/gtest.h>
#include <utility>

#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/BKUKFontManager.h"
#include "platform/appkit/drawing/NSColor.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {

/// A white window of 200 × 100 points with the keyboard, and a registered family.
struct LabelFixture : testing::Test {
  using Type = BKUKFontManager::FontTypes;

  LabelFixture() {
    BKUKFontLoader::shared().registerFont({{Type::regular, "DejaVuSans"}, {Type::bold, "DejaVuSans-Bold"}});
    BKUKFontManager::clearCache();
    const auto none = [](const NSFont&) { return 0.0; };
    BKUKFontLoader::shared().setLabelLocalizedOffsets(none, none);
    window->setBackgroundColor(NSColor::white());
    window->makeKeyAndOrderFront();
    host->settle();
  }
  ~LabelFixture() override { window->close(); }

  void show(const Ref<NSView>& view, NSRect frame) {
    view->setFrame(frame);
    window->contentView()->addSubview(view);
    host->settle();
  }
  [[nodiscard]] VirtualWindow& desktop() const { return *host->windows().front(); }
  /// The first and the last row of the window with ink, from the top; −1 for none.
  [[nodiscard]] std::pair<int, int> inkRows() const {
    host->settle();
    std::pair<int, int> rows{-1, -1};
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 200; ++x) {
        if (desktop().pixel(x, y) == 0xFFFFFFFF) continue;
        if (rows.first < 0) rows.first = y;
        rows.second = y;
      }
    }
    return rows;
  }

  VirtualHostScope host;
  Ref<BKUKWindow> window = make<BKUKWindow>(NSRect(0, 0, 200, 100));
};

}  // namespace bkuk
