#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Bitmap.h"
#include "host/Geometry.h"
#include "host/Window.h"

namespace bkuk::host {

/// One screen of the desktop, in screen points.
struct Screen {
  Rect frame{};
  Rect visibleFrame{};  ///< without panels and docks
  double scale = 1;     ///< device pixels per point
};

/// How the desktop knows the program.
struct ApplicationIdentity {
  std::string name;       ///< UTF-8, as users read it; empty for the program file's
  std::string desktopId;  ///< of its desktop file, without ".desktop"; empty for the program file's name
  std::shared_ptr<const Bitmap> icon;  ///< absent to leave it to the desktop file
};

/// Windows, the screens that they stand on, and the program as the desktop shows it. Main thread.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// A hidden window. What happens to it is told to `client`, which must outlive it. The library owns it, and
  /// destroys all its windows before it replaces the host.
  [[nodiscard]] virtual std::unique_ptr<Window> makeWindow(const WindowOptions& options,
                                                           WindowClient& client) = 0;

  /// The main screen first; never empty. Screen points have one origin for all screens, and y runs down.
  [[nodiscard]] virtual std::vector<Screen> screens() const = 0;
  /// False where the desktop places windows itself: then only sizes of frames count.
  [[nodiscard]] virtual bool canPlaceWindows() const = 0;
  /// False when there is nobody to show windows to. They can be made all the same.
  [[nodiscard]] virtual bool hasDisplay() const = 0;

  /// The sound that says "not here". Silence where there is none.
  virtual void beep() = 0;
  /// Takes effect for windows that are made later; desktops read the id from the first one at the latest.
  virtual void setIdentity(const ApplicationIdentity& identity) = 0;
};

}  // namespace bkuk::host
