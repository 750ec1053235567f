#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/appkit/NSAppearance.h"
#include "platform/appkit/NSResponder.h"
#include "platform/appkit/text/NSUserInterfaceLayoutDirection.h"

namespace bkuk {

namespace host {
class Desktop;
class Host;
}

class NSImage;
class NSWindow;

/// The process's one application object: its appearance, its windows and where its events go.
class NSApplication : public NSResponder {
 public:
  /// Created on first use; lives until the process ends. The thread that makes it is the main thread.
  [[nodiscard]] static NSApplication& shared();

  /// The key under which observers hear of changes of `effectiveAppearance`.
  static constexpr std::string_view effectiveAppearanceKey = "effectiveAppearance";

  /// `appearance` when it is set, else the desktop's; never absent. Observable. When it changes, the
  /// value is stored, then observers run, then every view of every window hears of it, superviews
  /// first, and is drawn again.
  [[nodiscard]] const Ref<NSAppearance>& effectiveAppearance() const { return effectiveAppearance_; }
  /// The application's own choice; absent to follow the desktop.
  [[nodiscard]] const Ref<NSAppearance>& appearance() const { return appearance_; }
  void setAppearance(Ref<NSAppearance> appearance);

  /// The application's own choice when it is set, else the desktop's answer, read at each use.
  [[nodiscard]] NSUserInterfaceLayoutDirection userInterfaceLayoutDirection() const;
  /// Sets the direction for the whole application; absent to follow the desktop. Every window is laid
  /// out and drawn again.
  void setUserInterfaceLayoutDirection(std::optional<NSUserInterfaceLayoutDirection> direction);
  [[nodiscard]] bool isFullKeyboardAccessEnabled() const;

  /// Whether one of the application's windows has the keyboard.
  [[nodiscard]] bool isActive() const { return keyWindow_.isAlive(); }
  [[nodiscard]] Ref<NSWindow> keyWindow() const;
  [[nodiscard]] Ref<NSWindow> mainWindow() const;
  /// Every window that lives, in the order in which they were made.
  [[nodiscard]] std::vector<Ref<NSWindow>> windows() const;
  /// The event being sent; absent outside `sendEvent`.
  [[nodiscard]] const Ref<NSEvent>& currentEvent() const { return currentEvent_; }

  // How the desktop knows the application; to be set before the first window is made, for desktops read it
  // with that and most never again

  /// As users read it, for instance in a list of programs; empty, as at first, for the program file's name.
  [[nodiscard]] const std::string& applicationName() const { return applicationName_; }
  void setApplicationName(std::string name);
  /// The name of the application's desktop file without ".desktop", as "org.example.Editor". By it the
  /// desktop finds the icon and groups the windows: it is the application id on Wayland and the class of
  /// windows on X11. Empty, as at first, for the program file's name.
  [[nodiscard]] const std::string& desktopIdentifier() const { return desktopIdentifier_; }
  void setDesktopIdentifier(std::string identifier);
  /// For desktops that take the icon from the windows, as X11's do; others take it from the desktop file.
  [[nodiscard]] const Ref<NSImage>& applicationIconImage() const { return applicationIconImage_; }
  void setApplicationIconImage(Ref<NSImage> image);

  [[nodiscard]] Ref<NSObject> delegate() const { return delegate_.lock(); }
  void setDelegate(NSObject* delegate) { delegate_ = delegate; }

  /// Local monitors first, then key equivalents, then the event's window.
  void sendEvent(NSEvent& event);

  /// Performs `selector` on `target`, or, when that is absent, on the first that responds of: the key
  /// window's responder chain and delegate, the main window's, the application, its delegate. False
  /// when the selector is absent or nobody responds.
  bool sendAction(Selector selector, NSObject* target, NSObject* sender);

  /// Serves events until `stop`. An application that runs a loop of its own calls neither.
  void run();
  void stop();
  /// Whether `run` ends once the last visible window was closed; true at first.
  [[nodiscard]] bool terminatesAfterLastWindowClosed() const { return terminatesAfterLastWindowClosed_; }
  void setTerminatesAfterLastWindowClosed(bool terminates) { terminatesAfterLastWindowClosed_ = terminates; }

  NSApplication();

 private:
  friend class NSWindow;

  void attach(host::Host& host);
  void tellIdentity(host::Desktop& desktop) const;
  void identityDidChange(std::string_view setter) const;
  void refreshEffectiveAppearance();
  void tellWindowsOfAppearance();
  void commit();
  [[nodiscard]] bool needsCommit() const;

  // The windows' side.
  void addWindow(NSWindow& window);
  void keepOrderedIn(NSWindow& window);
  void letGo(NSWindow& window);
  void windowDidClose();
  void setKeyWindow(NSWindow* window);
  bool performOnChain(NSWindow& window, Selector selector, NSObject* sender);

  std::string applicationName_;
  std::string desktopIdentifier_;
  Ref<NSImage> applicationIconImage_;
  Ref<NSAppearance> appearance_;
  Ref<NSAppearance> effectiveAppearance_;
  std::vector<Weak<NSWindow>> windows_;
  std::vector<Ref<NSWindow>> orderedIn_;  // a window that the user sees stays until it is ordered out
  Weak<NSWindow> keyWindow_;
  Weak<NSWindow> mainWindow_;
  Weak<NSObject> delegate_;
  Ref<NSEvent> currentEvent_;
  bool terminatesAfterLastWindowClosed_ = true;
};

}  // namespace bkuk
