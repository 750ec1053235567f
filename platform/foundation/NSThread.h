#pragma once

namespace bkuk {

/// Which thread is the main one: that which loaded the library, until another one takes over. May be asked on
/// any thread.
struct NSThread {
  [[nodiscard]] static bool isMainThread();

  /// Makes the calling thread the main one. Called when the application object is made there.
  static void becomeMainThread();
};

}  // namespace bkuk
