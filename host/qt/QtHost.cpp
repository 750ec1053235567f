#include "host/qt/QtHost.h"

#include "host/qt/desktop/QtApplication.h"

namespace bkuk::host {

// The appearance is told first: an announcement that waits makes the frames before it stale.
QtHost::QtHost()
    : application_(QtApplication::shared(QtApplication::Purpose::windows)),
      accessibility_([this] { loop_.noteQueued(); }),
      desktop_(application_, loop_, accessibility_),
      settings_(application_, loop_) {
  loop_.setSources(EventSources({&settings_.events(), &accessibility_, &desktop_}));
}

std::unique_ptr<Host> makeDesktopHost() { return std::make_unique<QtHost>(); }

}  // namespace bkuk::host
