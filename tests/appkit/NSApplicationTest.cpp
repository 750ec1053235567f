#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/drawing/NSImage.h"
#include "platform/foundation/NSKeyValueObservation.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/RecordingView.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

std::string_view effectiveName() { return NSApplication::shared().effectiveAppearance()->name(); }

// A host that comes later, as the desktop's does, is told too.
TEST(NSApplicationIdentity, ReachesTheHostBeforeTheFirstWindowAndComplainsAfter) {
  auto& application = NSApplication::shared();
  application.setApplicationName("The Editor");
  const VirtualHostScope host;
  EXPECT_EQ(host->identity().name, "The Editor");
  testing::internal::CaptureStderr();
  application.setDesktopIdentifier("org.example.Editor");
  application.setApplicationIconImage(make<NSImage>(NSSize{16, 16}, false, [](const CGRect& rect) {
    NSColor::white()->setFill();
    NSRectFill(rect);
    return true;
  }));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(host->identity().desktopId, "org.example.Editor");
  ASSERT_TRUE(host->identity().icon);
  EXPECT_EQ(host->identity().icon->row(64)[127], 0xFFFFFFFF) << "drawn to the edge, in the icon's own pixels";
  const auto window = make<NSWindow>(NSRect(0, 0, 10, 10));
  window->orderFront();
  testing::internal::CaptureStderr();
  application.setDesktopIdentifier("");
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("call setDesktopIdentifier before"));
  window->close();
  application.setApplicationName("");
  application.setApplicationIconImage(nullptr);
}

class Handler : public NSObject {
 public:
  int calls = 0;
  Ref<NSObject> lastSender;

  void act(NSObject* sender) {
    ++calls;
    lastSender = sender;
  }
  const SelectorTable& selectors() const override {
    static const auto& table =
        SelectorTable::make(NSObject::selectors(), {{"act", memberAction<&Handler::act>}});
    return table;
  }
};

TEST(NSApplicationAppearance, FollowsTheDesktopUnlessTheApplicationChooses) {
  const VirtualHostScope host;
  auto& application = NSApplication::shared();
  host->setAppearance({.scheme = host::ColorScheme::dark});
  EXPECT_EQ(effectiveName(), NSAppearanceNameDarkAqua);
  host->setAppearance({.scheme = host::ColorScheme::light, .highContrast = true});
  EXPECT_EQ(effectiveName(), NSAppearanceNameAccessibilityAqua);
  application.setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
  host->setAppearance({.scheme = host::ColorScheme::light});
  EXPECT_EQ(effectiveName(), NSAppearanceNameDarkAqua);
  application.setAppearance(nullptr);
  EXPECT_EQ(effectiveName(), NSAppearanceNameAqua);
  host->setAppearance({});
  const std::string_view names[] = {NSAppearanceNameDarkAqua, NSAppearanceNameAqua};
  EXPECT_FALSE(application.effectiveAppearance()->bestMatch(names));
}

TEST(NSApplicationAppearance, ObserversHearBeforeViewsAndOnlyOfRealChanges) {
  const VirtualHostScope host;
  auto& application = NSApplication::shared();
  host->setAppearance({.scheme = host::ColorScheme::light});
  WindowWithView fixture;
  const auto child = make<RecordingView>(NSRect(0, 0, 10, 10));
  fixture.view->addSubview(child);
  host->settle();
  child->takeLog();
  int changes = 0;
  const auto observation = observe(application, NSApplication::effectiveAppearanceKey, [&] {
    ++changes;
    EXPECT_EQ(effectiveName(), NSAppearanceNameDarkAqua);
    EXPECT_TRUE(fixture.view->log.empty());
  });
  fixture.view->onCall = [&](std::string_view call) {
    if (call != "appearance") return;
    EXPECT_TRUE(child->log.empty()) << "superviews first";
  };
  application.setAppearance(NSAppearance::named(NSAppearanceNameAqua));
  EXPECT_EQ(changes, 0);
  application.setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
  EXPECT_EQ(changes, 1);
  host->settle();
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("appearance", "draw"));
  EXPECT_THAT(child->takeLog(), ElementsAre("appearance", "draw"));
  observation->invalidate();
  application.setAppearance(nullptr);
}

TEST(NSApplicationAppearance, AViewMayCloseTheWindowWhileItIsTold) {
  const VirtualHostScope host;
  auto& application = NSApplication::shared();
  WindowWithView fixture;
  fixture.view->onCall = [window = fixture.window.get()](std::string_view call) {
    if (call != "appearance") return;
    window->setContentView(nullptr);
    window->close();
  };
  application.setAppearance(NSAppearance::named(NSAppearanceNameDarkAqua));
  application.setAppearance(nullptr);
  host->settle();
  EXPECT_FALSE(fixture.window->isVisible());
}

TEST(NSApplicationActions, GoToTheFirstThatResponds) {
  const VirtualHostScope host;
  auto& application = NSApplication::shared();
  WindowWithView fixture;
  const auto sender = make<NSView>();
  const auto windowDelegate = make<Handler>();
  const auto applicationDelegate = make<Handler>();
  EXPECT_FALSE(application.sendAction({}, windowDelegate.get(), sender.get()));
  EXPECT_FALSE(application.sendAction("act", nullptr, sender.get()));
  EXPECT_FALSE(application.sendAction("act", sender.get(), sender.get()));
  application.setDelegate(applicationDelegate.get());
  EXPECT_TRUE(application.sendAction("act", nullptr, sender.get()));
  EXPECT_EQ(applicationDelegate->lastSender, sender);
  fixture.window->setDelegate(windowDelegate.get());
  EXPECT_TRUE(application.sendAction("act", nullptr, sender.get()));
  EXPECT_EQ(windowDelegate->calls, 1);
  EXPECT_EQ(applicationDelegate->calls, 1);
  application.setDelegate(nullptr);
}

}  // namespace
}  // namespace bkuk
