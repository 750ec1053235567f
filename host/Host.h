#pragma once

#include <memory>

namespace bkuk::host {

class Accessibility;
class Desktop;
class Drawing;
class Loop;
class Settings;

/// Everything that the library asks of a system, by subject: each has a header of its own, which says what
/// must hold, and `docs/porting.md` tells how to write one. One host serves a process.
///
/// A subject is the same object for as long as the host lives. Hosts may be asked for `loop` on any thread,
/// for the others on the main thread.
class Host {
 public:
  virtual ~Host() = default;

  /// Time, events and waiting.
  [[nodiscard]] virtual Loop& loop() = 0;
  /// Windows and screens.
  [[nodiscard]] virtual Desktop& desktop() = 0;
  /// Shapes, text and image files.
  [[nodiscard]] virtual Drawing& drawing() = 0;
  /// What the user has settled.
  [[nodiscard]] virtual Settings& settings() = 0;
  /// Assistive clients.
  [[nodiscard]] virtual Accessibility& accessibility() = 0;
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
