#pragma once

#include <vector>

namespace bkuk {

class CARenderer;

/// The renderers of the process, for whoever commits them all.
class RendererList {
 public:
  [[nodiscard]] static RendererList& shared();

  void add(CARenderer& renderer) { renderers_.push_back(&renderer); }
  void remove(CARenderer& renderer) { std::erase(renderers_, &renderer); }

  [[nodiscard]] bool needsCommit() const;
  /// Commits those that need it. Renderers may come and go meanwhile.
  void commit();

 private:
  std::vector<CARenderer*> renderers_;
};

}  // namespace bkuk
