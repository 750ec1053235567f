#include "host/qt/desktop/QtBell.h"

#include <QtCore/QLibrary>
#include <QtGui/QGuiApplication>

namespace bkuk::host {

namespace {

// The two calls of the library that Qt's own X11 plug-in brings along; Qt offers no bell of its own.
struct Xcb {
  struct Cookie {
    unsigned sequence;
  };
  using Bell = Cookie (*)(void* connection, signed char percent);
  using Flush = int (*)(void* connection);

  Bell bell = reinterpret_cast<Bell>(QLibrary::resolve("xcb", 1, "xcb_bell"));
  Flush flush = reinterpret_cast<Flush>(QLibrary::resolve("xcb", 1, "xcb_flush"));
};

}  // namespace

void ringBell() {
  auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
  if (!x11) return;
  static const Xcb xcb;
  if (!xcb.bell || !xcb.flush) return;
  xcb.bell(x11->connection(), 0);
  xcb.flush(x11->connection());
}

}  // namespace bkuk::host
