#pragma once

#include "host/Accessibility.h"

namespace bkuk {

class VirtualScreenReader;

/// The accessibility bus of a virtual host, on which a `VirtualScreenReader` is the only client.
class VirtualAccessibility final : public host::Accessibility {
 public:
  [[nodiscard]] host::AccessibilityTree* tree() const { return tree_; }
  /// Null when nobody listens any more.
  void setReader(VirtualScreenReader* reader) { reader_ = reader; }
  [[nodiscard]] VirtualScreenReader* reader() const { return reader_; }

  void setTree(host::AccessibilityTree* tree) override { tree_ = tree; }
  [[nodiscard]] bool hasClient() const override { return reader_ != nullptr; }
  void announce(const host::AccessibilityChange& change) override;

 private:
  host::AccessibilityTree* tree_ = nullptr;
  VirtualScreenReader* reader_ = nullptr;
};

}  // namespace bkuk
