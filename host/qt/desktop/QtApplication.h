#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Desktop.h"

class QGuiApplication;
class QWindow;

namespace bkuk::host {

class QtWindow;

/// The process's application object: the one that the program has made already, or one of our own, which
/// then lives until the process ends.
class QtApplication {
 public:
  enum class Purpose { windows, drawing };

  /// The first call adopts or makes the application object; one made for drawing alone never looks for a
  /// display. With no display that answers, the offscreen platform takes its place.
  static QtApplication& shared(Purpose purpose);

  QtApplication(const QtApplication&) = delete;
  QtApplication& operator=(const QtApplication&) = delete;

  [[nodiscard]] bool isAdopted() const { return isAdopted_; }
  [[nodiscard]] bool hasDisplay() const;
  /// False on Wayland, which has no coordinates of the screen.
  [[nodiscard]] bool canPlaceWindows() const;
  /// The X Window System, where popups grab the pointer themselves.
  [[nodiscard]] bool isX11() const;

  /// What is empty stays as it is.
  void identify(const ApplicationIdentity& identity);
  /// To be called with each new native window: the first takes the desktop id along, where windows tell it.
  void nameClass(QWindow& window);

  /// Registered windows lose their native part before an adopted application object goes: what is left of
  /// Qt's windows after that brings the process down.
  void add(QtWindow& window) { windows_.push_back(&window); }
  void remove(QtWindow& window) { std::erase(windows_, &window); }

 private:
  enum class Platform { x11, wayland, none, other };

  explicit QtApplication(Purpose purpose);
  [[nodiscard]] static Platform presentPlatform();
  void make(Purpose purpose);
  static void closeWindows();

  bool isAdopted_;
  Platform platform_ = Platform::none;
  std::string desktopId_;
  std::vector<QtWindow*> windows_;
};

}  // namespace bkuk::host
