#pragma once

#include <string>
#include <vector>

#include "platform/appkit/NSView.h"
#include "platform/appkit/NSWindow.h"

namespace bkuk {

/// A view that writes down what it is told and lets a test act in the middle of it.
class RecordingView : public NSView {
 public:
  using NSView::NSView;

  std::vector<std::string> log;
  std::function<void(std::string_view)> onCall;
  bool flipped = false;
  bool accepts = true;
  bool refusesToResign = false;
  bool refusesToBecome = false;
  bool firstMouse = false;

  bool isFlipped() const override { return flipped; }
  bool acceptsFirstResponder() const override { return accepts; }
  bool acceptsFirstMouse(NSEvent&) const override { return firstMouse; }
  bool becomeFirstResponder() override { return note("become"), !refusesToBecome; }
  bool resignFirstResponder() override { return note("resign"), !refusesToResign; }
  void mouseDown(NSEvent&) override { note("down"); }
  void mouseDragged(NSEvent&) override { note("drag"); }
  void mouseUp(NSEvent& event) override {
    lastLocation = event.locationInWindow();
    note("up");
  }
  void keyDown(NSEvent& event) override {
    note("key " + event.characters());
    if (passesKeysOn) NSView::keyDown(event);
  }
  void viewWillMoveToWindow(NSWindow* window) override { note(window ? "will enter" : "will leave"); }
  void viewDidMoveToWindow() override { note(window() ? "entered" : "left"); }
  void viewDidChangeEffectiveAppearance() override { note("appearance"); }
  void layout() override { note("layout"); }
  void draw(NSRect) override { note("draw"); }

  std::vector<std::string> takeLog() { return std::exchange(log, {}); }

  bool passesKeysOn = false;
  NSPoint lastLocation;

 private:
  void note(std::string call) {
    log.push_back(call);
    if (const auto act = onCall) act(call);
  }
};

/// A window with a recording view in the middle, shown on a virtual desktop and without a log so far.
struct WindowWithView {
  Ref<NSWindow> window = make<NSWindow>(NSRect(100, 100, 200, 100));
  Ref<RecordingView> view = make<RecordingView>(NSRect(50, 20, 100, 50));

  WindowWithView() {
    window->contentView()->addSubview(view);
    window->makeKeyAndOrderFront();
    window->displayIfNeeded();
    view->log.clear();
  }
  ~WindowWithView() { window->close(); }
};

}  // namespace bkuk
