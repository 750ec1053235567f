#pragma once

namespace bkuk {

/// The modes in which a run loop runs. A timer fires only while the loop runs in a mode that it was added to.
enum class NSRunLoopMode : unsigned {
  default_ = 1,
  eventTracking = 2,
  modalPanel = 4,
  common = 7,  ///< a pseudo-mode: adding to it adds to all the others; no loop runs in it
};

inline constexpr NSRunLoopMode NSDefaultRunLoopMode = NSRunLoopMode::default_;
inline constexpr NSRunLoopMode NSEventTrackingRunLoopMode = NSRunLoopMode::eventTracking;
inline constexpr NSRunLoopMode NSModalPanelRunLoopMode = NSRunLoopMode::modalPanel;
inline constexpr NSRunLoopMode NSRunLoopCommonModes = NSRunLoopMode::common;

}  // namespace bkuk
