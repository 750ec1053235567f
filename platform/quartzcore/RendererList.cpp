#include "platform/quartzcore/RendererList.h"

#include <algorithm>

#include "platform/quartzcore/CARenderer.h"

namespace bkuk {

RendererList& RendererList::shared() {
  static auto& list = *new RendererList;
  return list;
}

bool RendererList::needsCommit() const {
  return std::ranges::any_of(renderers_, [](const auto* renderer) { return renderer->needsCommit(); });
}

void RendererList::commit() {
  const auto snapshot = renderers_;
  for (auto* renderer : snapshot) {
    const bool isThere = std::ranges::find(renderers_, renderer) != renderers_.end();
    if (isThere && renderer->needsCommit()) renderer->commit();
  }
}

}  // namespace bkuk
