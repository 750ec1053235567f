#pragma once

namespace bkuk {

/// Which way a line of text and the interface around it run.
enum class NSUserInterfaceLayoutDirection { leftToRight = 0, rightToLeft = 1 };

}  // namespace bkuk
