#include "platform/quartzcore/compositor/Scene.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerChildren.h"
#include "platform/quartzcore/LayerGeometry.h"
#include "platform/quartzcore/compositor/LayerUpdate.h"
#include "platform/quartzcore/compositor/OccluderStack.h"

namespace bkuk {

namespace {

// Every open group has an image. What is nested deeper than this is composed without one.
constexpr std::size_t mostOpenGroups = 24;

bool touchesCorner(const RoundedBox& box, const PixelRect& rect) {
  const auto size = static_cast<int>(std::ceil(box.radius));
  const auto& r = box.rect;
  const auto touches = [&](DeviceCorner corner, int x, int y) {
    return (box.corners & corner) && intersects({x, y, size, size}, rect);
  };
  return touches(upperLeft, r.x, r.y) || touches(upperRight, r.maxX() - size, r.y) ||
         touches(lowerLeft, r.x, r.maxY() - size) || touches(lowerRight, r.maxX() - size, r.maxY() - size);
}

// Whether cutting `rect` to the layer's bounds takes more than a clip of whole pixels.
bool needsClipGroup(const CALayer& shown, const LayerBox& box, const PixelRect& rect) {
  if (!shown.masksToBounds()) return false;
  if (!box.isAligned) return true;
  return box.isUniform ? touchesCorner(box.shape, rect) : shown.cornerRadius() > 0;
}

// Calls `add` with the parts of an item that are surely opaque.
void forOpaqueParts(const Scene::Item& item, const LayerBox& box, auto&& add) {
  if (item.kind == Scene::Item::Kind::contents) {
    const bool fillsBox = item.layer->isOpaque() && !item.layer->contents()->isPart();
    if (fillsBox && box.isAligned && item.alpha == 1) add(intersect(box.rect, item.rect));
    return;
  }
  if (item.kind != Scene::Item::Kind::fill || alphaOf(item.color) != 255 || !box.isUniform) return;
  const auto corner = static_cast<int>(std::ceil(box.shape.radius));
  const auto& r = box.rect;
  add(intersect({r.x, r.y + corner, r.width, r.height - 2 * corner}, item.rect));
  if (corner > 0) add(intersect({r.x + corner, r.y, r.width - 2 * corner, r.height}, item.rect));
}

}  // namespace

// What is still to be listed, the next on top.
struct Scene::Step {
  enum class Kind { enter, border, mask, closeGroup };
  Kind kind = Kind::enter;
  CALayer* layer = nullptr;
  Ref<const CALayer> shown{};
  CGAffineTransform parentToDevice{};
  PixelRect clip{};  // what the superlayers cut it to
  PixelRect area{};  // what is looked at: the damage, or more where a shadow spreads into it
  double alpha = 1;
  std::size_t box = 0;
  std::size_t group = 0;  // the beginning of the one to close
  bool isFlipped = false;
  bool isInMask = false;
};

// A layer while it is listed.
struct Scene::Place {
  CALayer& layer;
  Ref<const CALayer> shown;
  std::size_t box;
  PixelRect clip;
  PixelRect area;
  bool isFlipped;
  bool isInMask;

  [[nodiscard]] PixelRect visible(const PixelRect& rect) const {
    return intersect(intersect(rect, clip), area);
  }
};

Scene::Scene() = default;

Scene::~Scene() = default;

void Scene::build(CALayer& root, const CGAffineTransform& toDevice, const PixelRect& image,
                  const PixelRect& area, double time) {
  items_.clear();
  boxes_.clear();
  covers_.clear();
  shown_.clear();
  openGroups_ = 0;
  time_ = time;
  steps_.push_back({.layer = &root, .parentToDevice = toDevice, .clip = image, .area = area});
  while (!steps_.empty()) {
    const auto step = std::move(steps_.back());
    steps_.pop_back();
    take(step);
  }
  hideCovered(area);
}

void Scene::take(const Step& step) {
  switch (step.kind) {
    case Step::Kind::enter:
      return enter(step);
    case Step::Kind::border:
      return listBorder(step);
    case Step::Kind::mask:
      return listMask(step);
    case Step::Kind::closeGroup:
      auto end = items_[step.group];
      end.kind = Kind::groupEnd;
      items_.push_back(end);
      --openGroups_;
  }
}

void Scene::enter(const Step& step) {
  auto& layer = *step.layer;
  auto shown = LayerAccess::shown(layer, time_);
  if (!isVisible(*shown)) return;
  const LayerBox box(*shown, transformToSuperlayer(*shown).concatenating(step.parentToDevice));
  if (!box.isPlaced) return;
  const auto alpha = step.alpha * std::min(shown->opacity(), 1.0);
  const bool isFlipped = step.isFlipped != shown->isGeometryFlipped();
  boxes_.push_back(box);
  shown_.push_back(shown);
  list({layer, std::move(shown), boxes_.size() - 1, step.clip, step.area, isFlipped, step.isInMask}, alpha);
}

PixelRect Scene::subtreeRect(const Place& place) const {
  return place.isInMask ? intersect(place.clip, place.area)
                        : place.visible(LayerAccess::record(place.layer).subtree);
}

// Of the layer itself and what is below it, without its shadow.
PixelRect Scene::contentRect(const Place& place) const {
  if (place.isInMask) return intersect(place.clip, place.area);
  return place.visible(pixelsOfContent(*place.shown, boxes_[place.box], pixelsBelow(place.layer)));
}

// From the outside in: the group of an opacity, the shadow, the group of a mask or of what casts a shadow.
void Scene::list(const Place& place, double alpha) {
  const auto& box = boxes_[place.box];
  const auto rect = subtreeRect(place);
  const auto shadow = LayerShadow::of(*place.shown, box, place.layer, place.isFlipped);
  const bool hasShadow = shadow.kind != LayerShadow::Kind::none;
  const bool isGroup = alpha < 1 && hasSeveralParts(*place.shown, place.layer, hasShadow, place.isInMask);
  if (isGroup && openGroups_ < mostOpenGroups) {
    openGroup(place, {.kind = Kind::groupBegin, .rect = rect, .surface = rect, .alpha = alpha});
    alpha = 1;
  }
  const bool isComposed = shadow.kind == LayerShadow::Kind::composed;
  if (hasShadow && !isComposed) {
    const auto shadowRect = shadow.rect(*place.shown, box, box.rect);
    auto& item = add(Kind::shadow, place, place.visible(shadowRect), alpha);
    item.shadow = shadow;
  }
  const bool hasMask = place.shown->mask() != nullptr;
  if ((!hasMask && !isComposed) || openGroups_ >= mostOpenGroups) return listContent(place, alpha);
  auto inside = place;
  Item group{.kind = Kind::groupBegin, .hasMask = hasMask, .rect = rect, .surface = rect, .alpha = alpha};
  if (isComposed) {
    // What a superlayer cuts off, or is not damaged, casts its shadow into what is.
    inside.clip = shadow.areaThatCastsInto(place.clip);
    inside.area = shadow.areaThatCastsInto(place.area);
    group.shadow = shadow;
    group.surface = contentRect(inside);
  }
  openGroup(inside, group);
  if (hasMask) pushAfter(inside, {.kind = Step::Kind::mask});
  listContent(inside, 1);
}

void Scene::openGroup(const Place& place, Item group) {
  group.layer = place.shown.get();
  group.box = place.box;
  items_.push_back(group);
  ++openGroups_;
  pushAfter(place, {.kind = Step::Kind::closeGroup, .group = items_.size() - 1});
}

void Scene::pushAfter(const Place& place, Step step) {
  step.layer = &place.layer;
  step.shown = place.shown;
  step.clip = place.clip;
  step.area = place.area;
  step.box = place.box;
  step.isFlipped = place.isFlipped;
  step.isInMask = place.isInMask;
  steps_.push_back(std::move(step));
}

void Scene::listContent(const Place& place, double alpha) {
  const auto& shown = *place.shown;
  const auto& box = boxes_[place.box];
  if (hasVisibleBackground(shown)) {
    add(Kind::fill, place, place.visible(box.rect), alpha).color =
        premultiplied(shown.backgroundColor()->rgba(), alpha);
  }
  if (hasVisibleBorder(shown)) pushAfter(place, {.kind = Step::Kind::border, .alpha = alpha});
  listInside(place, alpha);
}

// What is cut by a layer that masks to its bounds.
void Scene::listInside(const Place& place, double alpha) {
  const auto& shown = *place.shown;
  const auto& box = boxes_[place.box];
  const auto beyond = LayerAccess::paintedBox(shown);
  const bool hasContents = hasVisibleContents(shown);
  if (!hasContents && beyond.isNull() && place.layer.sublayers().empty()) return;
  auto inside = place;
  if (shown.masksToBounds()) inside.clip = intersect(place.clip, box.rect);
  const auto rect = subtreeRect(inside);
  if (rect.isEmpty()) return;
  if (needsClipGroup(shown, box, rect) && openGroups_ < mostOpenGroups) {
    openGroup(inside,
              {.kind = Kind::groupBegin, .clipsToBox = true, .rect = rect, .surface = rect, .alpha = alpha});
    alpha = 1;
  }
  if (hasContents) add(Kind::contents, inside, inside.visible(box.rect), alpha);
  if (!beyond.isNull()) {
    add(Kind::custom, inside, inside.visible(box.pixelsOfPaint(beyond)), alpha);
  }
  pushSublayers(inside, alpha);
}

void Scene::pushSublayers(const Place& place, double alpha) {
  const auto visible = intersect(place.clip, place.area);
  const auto push = [&](CALayer& sublayer) {
    steps_.push_back({.layer = &sublayer,
                      .parentToDevice = boxes_[place.box].toDevice,
                      .clip = place.clip,
                      .area = place.area,
                      .alpha = alpha,
                      .isFlipped = place.isFlipped,
                      .isInMask = place.isInMask});
  };
  const auto* children = LayerAccess::children(place.layer);
  if (!children) return;
  if (children->index && !place.isInMask) return children->index->forTouching(place.layer, visible, push);
  order_.clear();
  appendInPaintingOrder(place.layer, order_);
  for (auto sublayer = order_.rbegin(); sublayer != order_.rend(); ++sublayer) {
    const bool mayShow = place.isInMask || intersects(LayerAccess::record(**sublayer).subtree, visible);
    if (mayShow) push(**sublayer);
  }
}

void Scene::listBorder(const Step& step) {
  const Place place{*step.layer, step.shown, step.box, step.clip, step.area, step.isFlipped, step.isInMask};
  const auto& box = boxes_[step.box];
  auto& item = add(Kind::ring, place, place.visible(box.rect), step.alpha);
  item.color = premultiplied(step.shown->borderColor()->rgba(), step.alpha);
  item.width = box.borderPixels(step.shown->borderWidth());
}

void Scene::listMask(const Step& step) {
  items_.push_back({.kind = Kind::maskBegin});
  steps_.push_back({.layer = step.shown->mask().get(),
                    .parentToDevice = boxes_[step.box].toDevice,
                    .clip = step.clip,
                    .area = step.area,
                    .isFlipped = step.isFlipped,
                    .isInMask = true});
}

Scene::Item& Scene::add(Kind kind, const Place& place, const PixelRect& rect, double alpha) {
  items_.push_back({.kind = kind,
                    .isHidden = rect.isEmpty(),
                    .isFlipped = place.isFlipped,
                    .rect = rect,
                    .layer = place.shown.get(),
                    .box = place.box,
                    .alpha = alpha});
  return items_.back();
}

// From front to back.
void Scene::hideCovered(const PixelRect& area) {
  OccluderStack occluders;
  std::size_t hiddenGroups = 0;
  for (auto next = items_.rbegin(); next != items_.rend(); ++next) {
    auto& item = *next;
    const bool isBegin = item.kind == Kind::groupBegin;
    const bool isEnd = item.kind == Kind::groupEnd;
    const bool opensHidden = isEnd && occluders.hides(item.rect);
    if (hiddenGroups > 0 || opensHidden) {
      item.isHidden = true;
      if (isEnd) ++hiddenGroups;
      if (isBegin) --hiddenGroups;
      continue;
    }
    const bool isSeparate = item.hasMask || item.shadow.kind == LayerShadow::Kind::composed;
    if (isEnd) {
      isSeparate ? occluders.openSeparateGroup() : occluders.openGroup();
    } else if (isBegin) {
      occluders.closeGroup();
    } else if (item.kind == Kind::maskBegin) {
      occluders.closeGroup();
      occluders.openSeparateGroup();
    } else if (!item.isHidden) {
      item.isHidden = occluders.hides(item.rect);
      if (item.isHidden) continue;
      forOpaqueParts(item, box(item), [&](const auto& rect) { occluders.add(rect); });
      if (item.kind != Kind::shadow) continue;
      item.firstCover = covers_.size();
      occluders.appendCovers(item.rect, covers_);
      item.coverCount = covers_.size() - item.firstCover;
    }
  }
  coversArea_ = occluders.hides(area);
}

}  // namespace bkuk
