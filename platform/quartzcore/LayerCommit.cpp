#include "platform/quartzcore/LayerCommit.h"

#include <algorithm>

#include "platform/quartzcore/LayerAccess.h"

namespace bkuk {

namespace {

using Layers = std::vector<Ref<CALayer>>;

// So that the first sublayer is taken next, and the mask after all of them.
void pushMarkedBelow(const CALayer& layer, Layers& stack) {
  const auto push = [&](const Ref<CALayer>& below) {
    if (LayerAccess::marks(*below).commitBelow) stack.push_back(below);
  };
  if (layer.mask()) push(layer.mask());
  const auto& sublayers = layer.sublayers();
  std::for_each(sublayers.rbegin(), sublayers.rend(), push);
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
  for (const auto& layer : toDisplay) {
    if (layer->isDescendantOf(&root)) layer->displayIfNeeded();
  }
}

}  // namespace bkuk
