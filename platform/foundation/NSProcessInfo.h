#pragma once

namespace bkuk {

/// What the process runs on.
struct NSProcessInfo {
  [[nodiscard]] static NSProcessInfo& processInfo();

  /// Compares with the version of the desktop's system that the host answers.
  [[nodiscard]] bool isOperatingSystemAtLeast(int major, int minor = 0) const;
};

}  // namespace bkuk
