#include "platform/quartzcore/compositor/LayerUpdate.h"

#include <utility>

#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerChildren.h"
#include "platform/quartzcore/LayerGeometry.h"
#include "platform/quartzcore/compositor/LayerShadow.h"
#include "platform/quartzcore/compositor/LayerSight.h"

namespace bkuk {

namespace {

void clearMarksBelow(CALayer& top) {
  std::vector<CALayer*> stack{&top};
  while (!stack.empty()) {
    auto& layer = *stack.back();
    stack.pop_back();
    auto& marks = LayerAccess::marks(layer);
    if (!marks.renderBelow) continue;
    marks.renderBelow = marks.repaint = marks.rearrange = false;
    if (layer.mask()) stack.push_back(layer.mask().get());
    auto* children = LayerAccess::children(layer);
    if (!children) continue;
    const auto& marked = children->toRender.all();
    stack.insert(stack.end(), marked.begin(), marked.end());
    children->toRender.clear();
  }
}

// What of a layer is to be looked at where its superlayers leave `clip` of it: what they cut off may still
// cast a shadow.
PixelRect innerClip(const CALayer& shown, const LayerBox& box, const PixelRect& clip,
                    const LayerShadow& shadow) {
  if (shown.masksToBounds()) return intersect(clip, box.rect);
  return shadow.areaThatCastsInto(clip);
}

// The layer's own box, and beyond it what a subclass paints.
PixelRect paintedRect(const CALayer& shown, const LayerBox& box) {
  const bool paintsBox = hasVisibleBackground(shown) || hasVisibleBorder(shown) || hasVisibleContents(shown);
  const auto beyond = LayerAccess::paintedBox(shown);
  const auto own = paintsBox ? box.rect : PixelRect();
  return beyond.isNull() ? own : unite(own, box.pixelsOfPaint(beyond));
}

}  // namespace

PixelRect pixelsOfContent(const CALayer& shown, const LayerBox& box, const PixelRect& below) {
  return unite(paintedRect(shown, box), below);
}

bool isVisible(const CALayer& shown) { return !shown.isHidden() && shown.opacity() > 0; }

bool hasVisibleBackground(const CALayer& shown) {
  return shown.backgroundColor() && shown.backgroundColor()->rgba().alpha > 0;
}

bool hasVisibleBorder(const CALayer& shown) {
  return shown.borderWidth() > 0 && shown.borderColor() && shown.borderColor()->rgba().alpha > 0;
}

bool hasVisibleContents(const CALayer& shown) { return shown.contents() && !shown.contents()->isEmpty(); }

bool hasSeveralParts(const CALayer& shown, const CALayer& layer, bool hasShadow, bool withEmptySublayers) {
  if (shown.mask()) return hasShadow;
  int count = hasShadow + hasVisibleBackground(shown) + hasVisibleBorder(shown) + hasVisibleContents(shown);
  if (count > 1 || !LayerAccess::paintedBox(shown).isNull()) return true;
  for (const auto& sublayer : layer.sublayers()) {
    if (withEmptySublayers || !LayerAccess::record(*sublayer).subtree.isEmpty()) ++count;
    if (count > 1) return true;
  }
  return false;
}

// What a layer has from its superlayers.
struct LayerUpdate::Around {
  CGAffineTransform toDevice;
  PixelRect clip;
  PixelRect sight;  // what is in or near the visible part
  bool wholly = false;
  bool isFlipped = false;
  bool isTranslucent = false;
};

struct LayerUpdate::Visit {
  CALayer* layer;
  Ref<const CALayer> shown;
  LayerBox box;
  PixelRect clip;      // of the layer itself
  PixelRect sight;     // for its sublayers
  LayerShadow shadow;  // at most
  bool wholly;         // everything below moved along
  bool repaints;
  bool isFlipped;
  bool isTranslucent;  // it, or a layer around it, has an opacity
  bool sublayersMoved = false;
  std::size_t next = 0;

  // All sublayers of what moved as a whole, else those that are marked.
  [[nodiscard]] CALayer* nextSublayer() {
    if (wholly) return next < layer->sublayers().size() ? layer->sublayers()[next++].get() : nullptr;
    const auto* children = LayerAccess::children(*layer);
    if (!children) return nullptr;
    const auto& marked = children->toRender.all();
    return next < marked.size() ? marked[next++] : nullptr;
  }
};

LayerUpdate::LayerUpdate(const PixelRect& image, double time, DamageRegion& damage, Layers& cameInSight)
    : image_(image), time_(time), damage_(damage), cameInSight_(cameInSight) {}

LayerUpdate::~LayerUpdate() = default;

void LayerUpdate::run(CALayer& root, const CGAffineTransform& toDevice) {
  enter(root, {.toDevice = toDevice, .clip = image_, .sight = sightAround(image_)});
  while (!visits_.empty()) {
    auto& visit = visits_.back();
    auto* sublayer = visit.nextSublayer();
    if (!sublayer) {
      leave(visit);
      visits_.pop_back();
      continue;
    }
    // Entering may move the visits.
    const Around around{visit.box.toDevice, LayerAccess::record(*visit.layer).inside,
                        visit.sight,        visit.wholly,
                        visit.isFlipped,    visit.isTranslucent};
    enter(*sublayer, around);
  }
}

void LayerUpdate::enter(CALayer& layer, const Around& around) {
  auto& marks = LayerAccess::marks(layer);
  auto& record = LayerAccess::record(layer);
  damage(std::exchange(record.left, {}));
  if (marks.rearrange && !around.wholly) damage(record.subtree);
  if (layer.mask()) clearMarksBelow(*layer.mask());
  auto shown = LayerAccess::shown(layer, time_);
  if (!isVisible(*shown)) return leaveInvisible(layer);
  const LayerBox box(*shown, transformToSuperlayer(*shown).concatenating(around.toDevice));
  if (!box.isPlaced) return leaveInvisible(layer);
  const bool isFlipped = around.isFlipped != shown->isGeometryFlipped();
  const auto shadow = LayerShadow::atMost(*shown, box, isFlipped);
  const auto inside = innerClip(*shown, box, around.clip, shadow);
  // Another shadow reaches for other parts of the sublayers.
  if (std::exchange(record.inside, inside) != inside && !marks.rearrange && !around.wholly) {
    marks.rearrange = true;
    damage(record.subtree);
  }
  followSight(layer, box, around, isFlipped);
  visits_.push_back({&layer, shown, box, around.clip, sightInside(*shown, box, around.sight, shadow), shadow,
                     around.wholly || marks.rearrange, marks.repaint, isFlipped,
                     around.isTranslucent || shown->opacity() < 1});
  marks.repaint = marks.rearrange = marks.renderBelow = false;
}

void LayerUpdate::followSight(CALayer& layer, const LayerBox& box, const Around& around, bool isFlipped) {
  using Drawn = LayerAccess::Drawn;
  const auto drawn = LayerAccess::drawn(layer);
  if (drawn == Drawn::no) return;
  if (drawn == Drawn::awaited) {
    if (intersects(box.rect, around.sight)) cameInSight_.emplace_back(&layer);
    return;
  }
  if (!layer.contents()) return;
  if (!intersects(box.rect, whereBitmapsAreKept(around.sight))) return LayerAccess::dropDrawing(layer);
  if (drawn == Drawn::wholly) return;
  const auto visible = boundsWithin(box, around.clip);
  const bool isDrawn = visible.isEmpty() || boundsDrawn(layer, isFlipped).insetBy(-1, -1).contains(visible);
  if (!isDrawn) cameInSight_.emplace_back(&layer);
}

void LayerUpdate::leaveInvisible(CALayer& layer) {
  auto& record = LayerAccess::record(layer);
  record.own = record.subtree = {};
  if (!visits_.empty()) tellOfMove(layer, visits_.back());
  auto& marks = LayerAccess::marks(layer);
  // What is below it keeps its marks until it can be seen again, which rearranges it all.
  marks.repaint = marks.rearrange = marks.renderBelow = false;
}

void LayerUpdate::leave(Visit& visit) {
  auto& record = LayerAccess::record(*visit.layer);
  const auto oldOwn = record.own;
  const auto oldSubtree = record.subtree;
  const bool followedBelow = record.shadowFollowsBelow;
  const bool wasGroup = record.isGroup;
  updateRects(visit);
  if (auto* children = LayerAccess::children(*visit.layer)) children->toRender.clear();
  if (visits_.size() > 1 && (visit.wholly || record.subtree != oldSubtree)) {
    tellOfMove(*visit.layer, visits_[visits_.size() - 2]);
  }
  // Colours that are composed in another way round in another way, wherever they are.
  const bool changedKind = followedBelow != record.shadowFollowsBelow || wasGroup != record.isGroup;
  const bool isInside = visits_.size() > 1 && visits_[visits_.size() - 2].wholly;
  if (visit.wholly || changedKind) {
    if (changedKind) damage(oldSubtree);
    if (!isInside || changedKind) damage(record.subtree);
  } else if (visit.repaints) {
    damage(oldOwn);
    damage(record.own);
  }
}

void LayerUpdate::tellOfMove(const CALayer& sublayer, Visit& around) {
  around.sublayersMoved = true;
  auto& children = *LayerAccess::children(*around.layer);
  if (around.wholly || children.mayBeRaised || !children.index) return;
  children.index->set(children.list.indexOf(sublayer), LayerAccess::record(sublayer).subtree);
}

PixelRect LayerUpdate::updateBelow(const Visit& visit) {
  auto* children = LayerAccess::children(*visit.layer);
  if (!children) return {};
  auto& index = children->index;
  if (children->list.size() < SublayerIndex::worthwhileCount) {
    index = nullptr;
    return pixelsBelow(*visit.layer);
  }
  if (!index) index = std::make_unique<SublayerIndex>();
  if (visit.wholly || (children->mayBeRaised && visit.sublayersMoved)) index->forgetFrom(0);
  children->mayBeRaised = index->update(*visit.layer, children->mayBeRaised);
  return index->bounds();
}

void LayerUpdate::updateRects(Visit& visit) {
  auto& record = LayerAccess::record(*visit.layer);
  const auto below = updateBelow(visit);
  const auto painted = paintedRect(*visit.shown, visit.box);
  const auto shadow = visit.shadow.with(*visit.shown, visit.box, *visit.layer);
  const auto shadowRect = shadow.rect(*visit.shown, visit.box, unite(painted, below));
  record.own = intersect(unite(painted, shadowRect), visit.clip);
  record.subtree = unite(record.own, intersect(below, visit.clip));
  record.shadowFollowsBelow = shadow.kind == LayerShadow::Kind::composed;
  record.isGroup = visit.isTranslucent &&
                   hasSeveralParts(*visit.shown, *visit.layer, shadow.kind != LayerShadow::Kind::none);
}

}  // namespace bkuk
