#include "platform/quartzcore/LayerCommit.h"

#include <algorithm>

#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerChildren.h"

namespace bkuk {

namespace {

using Layers = std::vector<Ref<CALayer>>;

// The marked sublayers in the order of the tree.
std::vector<CALayer*> markedBelow(CALayer& layer) {
  std::vector<CALayer*> marked;
  const auto* children = LayerAccess::children(layer);
  if (!children) return marked;
  marked = children->toCommit.all();
  if (marked.size() < 2) return marked;
  const auto& list = children->list;
  const bool areMost = marked.size() > list.size() / 8;
  if (!areMost) {
    std::ranges::sort(marked, {}, [&](const CALayer* each) { return list.indexOf(*each); });
    return marked;
  }
  marked.clear();
  for (const auto& sublayer : list.all()) {
    if (LayerAccess::marks(*sublayer).commitBelow) marked.push_back(sublayer.get());
  }
  return marked;
}

// The mask is taken after all sublayers.
void pushMarkedBelow(CALayer& layer, Layers& stack) {
  if (layer.mask() && LayerAccess::marks(*layer.mask()).commitBelow) stack.push_back(layer.mask());
  const auto marked = markedBelow(layer);
  stack.insert(stack.end(), marked.rbegin(), marked.rend());
}

void layoutIfMarked(CALayer& layer) {
  auto& marks = LayerAccess::marks(layer);
  if (!marks.layout) return;
  marks.layout = false;
  layer.layoutSublayers();
}

// Leaves no layer marked that has not asked again, and answers those to display.
Layers takeMarks(CALayer& root, Layers& stillUnlaid) {
  Layers toDisplay;
  Layers stack{Ref<CALayer>(&root)};
  while (!stack.empty()) {
    const auto layer = std::move(stack.back());
    stack.pop_back();
    auto& marks = LayerAccess::marks(*layer);
    marks.commitBelow = false;
    LayerAccess::setCommitted(*layer);
    if (marks.layout) stillUnlaid.push_back(layer);
    if (marks.display) toDisplay.push_back(layer);
    pushMarkedBelow(*layer, stack);
    if (auto* children = LayerAccess::children(*layer)) children->toCommit.clear();
  }
  return toDisplay;
}

}  // namespace

void layoutMarked(CALayer& top) {
  Layers stack{Ref<CALayer>(&top)};
  const auto isStillThere = [&](const CALayer& layer) {
    return &layer == &top || LayerAccess::container(layer);
  };
  while (!stack.empty()) {
    const auto layer = std::move(stack.back());
    stack.pop_back();
    if (isStillThere(*layer)) layoutIfMarked(*layer);
    if (isStillThere(*layer)) pushMarkedBelow(*layer, stack);
  }
}

void displayMarked(CALayer& root) {
  Layers stillUnlaid;
  const auto toDisplay = takeMarks(root, stillUnlaid);
  for (const auto& layer : stillUnlaid) LayerAccess::markCommit(*layer);
  const auto version = LayerAccess::treeVersion();
  for (const auto& layer : toDisplay) {
    const bool isStillThere = version == LayerAccess::treeVersion() || layer->isDescendantOf(&root);
    if (isStillThere) layer->displayIfNeeded();
  }
}

}  // namespace bkuk
