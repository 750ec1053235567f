#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Accessibility.h"
#include "host/Appearance.h"
#include "host/Bitmap.h"
#include "host/Canvas.h"
#include "host/ImageFile.h"
#include "host/Text.h"
#include "host/Window.h"

namespace bkuk::host {

/// One screen of the desktop, in screen points.
struct Screen {
  Rect frame{};
  Rect visibleFrame{};  ///< without panels and docks
  double scale = 1;
};

struct SystemVersion {
  int major = 14;
  int minor = 0;
  auto operator<=>(const SystemVersion&) const = default;
};

/// How the desktop knows the program.
struct ApplicationIdentity {
  std::string name;       ///< UTF-8, as users read it; empty for the program file's
  std::string desktopId;  ///< of its desktop file, without ".desktop"; empty for the program file's name
  std::shared_ptr<const Bitmap> icon;  ///< absent to leave it to the desktop file
};

/// The library's run loop, as a host sees it.
class LoopClient {
 public:
  virtual ~LoopClient() = default;
  /// One turn: queued blocks, due timers, one event, commit. The host calls it when another
  /// library's loop runs and there is something to do.
  virtual void turn() = 0;
};

/// Everything that the library asks of a desktop. One host serves a process; every member but `wake`
/// belongs to the main thread.
///
/// The desktop's events are queued by the host and delivered one at a time by `dispatchEvent`.
class Host {
 public:
  virtual ~Host() = default;

  // Time and waiting

  /// Monotonic seconds.
  [[nodiscard]] virtual double now() const = 0;
  /// Delivers the oldest queued event to its window's client, or tells the appearance handler of a
  /// change. False when nothing was queued.
  virtual bool dispatchEvent() = 0;
  /// Sleeps until an event is queued, `wake` is called or the date on the host's clock has come; an
  /// absent date means no limit.
  virtual void wait(std::optional<double> until) = 0;
  /// Ends the present or the next wait. Callable from any thread.
  virtual void wake() = 0;
  /// Makes the host call `client.turn()` whenever an event is queued, `wake` was called or the date set by
  /// `scheduleTurn` has come while another library's loop runs. `client` must outlive the host.
  virtual void setLoopClient(LoopClient* client) = 0;
  virtual void scheduleTurn(std::optional<double> date) = 0;

  // Desktop

  [[nodiscard]] virtual std::unique_ptr<Window> makeWindow(const WindowOptions& options,
                                                           WindowClient& client) = 0;
  /// The main screen first; never empty.
  [[nodiscard]] virtual std::vector<Screen> screens() const = 0;
  /// False where the desktop places windows itself.
  [[nodiscard]] virtual bool canPlaceWindows() const = 0;
  /// False when there is nobody to show windows to.
  [[nodiscard]] virtual bool hasDisplay() const = 0;
  virtual void beep() = 0;
  /// Takes effect for windows that are made later; desktops read the id from the first one at the latest.
  virtual void setIdentity(const ApplicationIdentity& identity) = 0;

  // Drawing

  [[nodiscard]] virtual std::unique_ptr<Canvas> makeCanvas(Bitmap& bitmap) = 0;
  [[nodiscard]] virtual Fonts& fonts() = 0;
  /// Reads PNG and JPEG, and SVG where the host has a reader for it. The contents decide, never a name.
  [[nodiscard]] virtual DecodedImage decodeImage(std::span<const std::byte> file) const = 0;

  // Answers

  /// A cached answer; costs no call to another process. The desktop's own from the start, where it gave one
  /// within 50 ms of the host's making.
  [[nodiscard]] virtual Appearance appearance() const = 0;
  /// `changed` is called from `dispatchEvent` after each real change.
  virtual void setAppearanceHandler(std::function<void()> changed) = 0;
  /// Best first, as language tags of the desktop ("de_DE.UTF-8" or "de-DE").
  [[nodiscard]] virtual std::vector<std::string> languages() const = 0;
  [[nodiscard]] virtual TextDirection layoutDirection() const = 0;
  [[nodiscard]] virtual bool isFullKeyboardAccessEnabled() const = 0;
  [[nodiscard]] virtual SystemVersion systemVersion() const = 0;

  // Assistive clients

  /// Where the host reads what it tells assistive clients. `tree` must outlive the host.
  virtual void setAccessibilityTree(AccessibilityTree* tree) = 0;
  /// Whether changes are worth telling: false while no assistive client can listen. A cached answer.
  [[nodiscard]] virtual bool hasAssistiveClient() const = 0;
  /// Tells the assistive clients of a change. The host may read the tree meanwhile, and changes nothing.
  virtual void announce(const AccessibilityChange& change) = 0;
};

/// The process's host. Made by `makeDesktopHost` on first use unless `install` came before; lives
/// until the process ends.
[[nodiscard]] Host& current();

/// Makes `host` the process's host and answers the one before, which the caller may put back; an
/// absent host makes the next `current()` build the desktop's. Must not be called while windows live.
std::unique_ptr<Host> install(std::unique_ptr<Host> host);

/// The process's host if there is one already; makes none.
[[nodiscard]] Host* currentIfAny();

/// Calls `observer` with every host that becomes the process's from now on, and at once with the
/// present one if there is one: whoever registers itself with the host does it there.
void addInstallObserver(void (*observer)(Host& host));

/// Wakes the process's host, if there is one. Callable from any thread, also while the main thread
/// replaces the host.
void wake();

/// The real desktop's host. Defined by the one implementation that is linked.
[[nodiscard, gnu::visibility("default")]] std::unique_ptr<Host> makeDesktopHost();

}  // namespace bkuk::host
