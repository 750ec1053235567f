#pragma once

#include <vector>

#include "platform/appkit/NSEvent.h"
#include "platform/appkit/NSTrackingArea.h"
#include "platform/foundation/BoxTree.h"

namespace bkuk {

class NSWindow;

/// Follows the pointer over the tracking areas of one window and reports to their owners. Owned by its
/// window, which tells it of every move; views tell it of their areas.
///
/// The areas lie in a flat list in base coordinates with boxes around neighbours of them, so that a move
/// looks at few of them, and at views and owners only where something changed.
class WindowTracking {
 public:
  /// Where the pointer is and what is held.
  struct Pointer {
    NSPoint location{};       ///< base coordinates
    bool isInWindow = false;  ///< false when it left, or another window lies in between
    bool isButtonDown = false;
    NSEventModifierFlags modifierFlags = 0;
    double timestamp = 0;
  };

  explicit WindowTracking(NSWindow& window) : window_(window) {}

  void add(NSView& view, NSTrackingArea& area);
  void remove(NSTrackingArea& area);
  /// Called when the area's view may lie elsewhere.
  void updateRect(const NSTrackingArea& area);

  /// Reports what the pointer's new place changes: all exits, front to back, then all entries, back to
  /// front, then cursor updates of what was entered. Owners may do what they like meanwhile, also close
  /// the window.
  void follow(const Pointer& pointer);
  /// Reports what changed without a move, because windows, the application or views became active or
  /// shown, or the contrary.
  void refresh() { follow(pointer_); }
  /// Hands a move to the owners of the areas under the pointer that asked for moves.
  void sendMoved(NSEvent& event);
  /// Delivers an event that `follow` has made.
  static void deliver(NSEvent& event);

 private:
  // In base coordinates the upper edge is inside and the lower is not, whichever way the view's y runs.
  struct Box {
    CGFloat minX, minY, maxX, maxY;

    [[nodiscard]] bool contains(NSPoint p) const {
      return p.x >= minX && p.x < maxX && p.y > minY && p.y <= maxY;
    }
    // One edge of the two counts as inside here, which at worst lists an area in vain.
    [[nodiscard]] BoxTree<CGFloat>::Box whole() const;
  };
  struct Entry {
    Box box;
    NSTrackingArea* area;                            // in the list of a view of this window, which keeps it
    std::size_t insideAt = NSTrackingArea::nowhere;  // among those that are inside

    [[nodiscard]] bool isInside() const { return insideAt != NSTrackingArea::nowhere; }
  };
  using Areas = std::vector<Ref<NSTrackingArea>>;

  [[nodiscard]] bool isActive(const NSTrackingArea& area) const;
  [[nodiscard]] bool isUnderPointer(const Entry& entry) const;
  void send(NSEventType type, const NSTrackingArea& area) const;
  void setInside(Entry& entry, bool isInside);
  void collect(Areas& exited, Areas& entered);
  void collect(Entry& entry, Areas& exited, Areas& entered);

  NSWindow& window_;
  Pointer pointer_;
  std::vector<Entry> entries_;
  BoxTree<CGFloat> boxes_;               // of the entries
  std::vector<NSTrackingArea*> inside_;  // those of the entries that are inside
  std::vector<std::size_t> concerned_;   // by the last move; kept for its memory
  std::size_t moveListenerCount_ = 0;    // areas that ask for moves
  Areas spareExited_;
  Areas spareEntered_;
};

}  // namespace bkuk
