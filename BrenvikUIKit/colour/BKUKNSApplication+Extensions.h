#pragma once

namespace bkuk {

class NSApplication;

/// Whether the dark appearance is in force: the application's effective appearance is dark aqua or stems from
/// it. Every themed colour and image follows this rule. False before system version 10.14.
[[nodiscard]] bool isDarkMode(const NSApplication& application);

}  // namespace bkuk
