#pragma once

#include <optional>

namespace bkuk {

/// Which way a line of text and the interface around it run.
enum class NSUserInterfaceLayoutDirection { leftToRight = 0, rightToLeft = 1 };

/// That of the program: the one that the application has chosen, else the desktop's.
[[nodiscard]] NSUserInterfaceLayoutDirection interfaceLayoutDirection();
/// Absent for the desktop's. Belongs to `NSApplication`, which tells the windows.
void setInterfaceLayoutDirection(std::optional<NSUserInterfaceLayoutDirection> direction);

}  // namespace bkuk
