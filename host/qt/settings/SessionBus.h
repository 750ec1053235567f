#pragma once

namespace bkuk::host {

/// Whether there is a session bus that talks: asks it for a name, and waits for the answer no longer than
/// 50 ms. One that accepts connections and then says nothing would hold up whoever joins it for ever, so it
/// counts as none; the environment then no longer names it, for Qt's own parts would join it too. The first
/// call finds out.
[[nodiscard]] bool hasSessionBus();

}  // namespace bkuk::host
