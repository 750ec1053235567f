#pragma once

#include <string>
#include <vector>

#include "BrenvikUIKit/interaction/BKUKStatefulViewDelegate.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSWindow.h"
#include "platform/foundation/NSTimer.h"
#include "testing/VirtualHostScope.h"
#include "tests/random/LivelyView.h"
#include "tests/support/RandomRun.h"

namespace bkuk {

/// A user, a desktop and an application that do anything at any time: step by step, and the application also
/// from within whatever it is told.
class RandomUser final : public LivelyViewListener {
 public:
  explicit RandomUser(unsigned seed);
  ~RandomUser() override;

  void step();
  /// What does not hold of the windows and views after a step; empty when all does.
  [[nodiscard]] std::string fault();
  /// Closes and lets go of everything; answers the class of something that lives on, empty for none.
  [[nodiscard]] std::string remains();

  void isCalled(NSView& view) override;

 private:
  class Listener;
  using Deed = void (RandomUser::*)();

  // Choices
  [[nodiscard]] Ref<NSView> anyView();
  [[nodiscard]] Ref<NSWindow> anyWindow();
  [[nodiscard]] VirtualWindow* anyDesktopWindow();
  [[nodiscard]] host::Point anyPoint();
  [[nodiscard]] NSRect anyFrame();
  [[nodiscard]] Ref<NSView> madeView();
  template <typename T>
  [[nodiscard]] Ref<T> tracked(Ref<T> object) {
    tracked_.emplace_back(object.get());
    return object;
  }

  // What the application does
  void deed();
  void addView();
  void moveView();
  void removeView();
  void dropView();
  void frameView();
  void hideView();
  void focusView();
  void changeControl();
  void changeListeners();
  void changeTracking();
  void constrain();
  void unconstrain();
  void changeTimers();
  void animate();
  void replaceContent();
  void openWindow();
  void closeWindow();
  void joinWindows();
  void displayNow();
  void changeAnswers();

  // What the user and the desktop do
  void movePointer();
  void press();
  void release();
  void drag();
  void typeKey();
  void changeDesktop();
  void waitSomeTime();

  [[nodiscard]] std::string faultOf(NSWindow& window) const;
  [[nodiscard]] std::string faultOf(NSView& view) const;
  [[nodiscard]] bool isHoveredFromAfar(const Ref<BKUKStatefulView>& view, std::string_view title) const;
  [[nodiscard]] std::string faultOfPointer();

  VirtualHostScope host_;
  RandomRun random_;
  int depth_ = 0;  // of calls from within which something was done
  Ref<NSView> called_;
  std::vector<Ref<NSWindow>> windows_;
  std::vector<Ref<NSView>> views_;
  std::vector<Ref<Listener>> listeners_;
  std::vector<Ref<NSTimer>> timers_;
  std::vector<Ref<NSLayoutConstraint>> constraints_;
  std::vector<Ref<NSObject>> observers_;
  std::vector<Weak<NSObject>> tracked_;
  int windowCount_ = 0;
  std::string pointerWindow_;  // the title of the one in which the pointer was moved by the last step
  host::Point pointer_;
};

}  // namespace bkuk
