#pragma once

namespace bkuk::host {

/// Rings the bell of the X server that the application is connected to; silent elsewhere.
void ringBell();

}  // namespace bkuk::host
