#include "platform/quartzcore/CARenderer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerAnimator.h"
#include "platform/quartzcore/LayerCommit.h"
#include "platform/quartzcore/RendererList.h"
#include "platform/quartzcore/compositor/DamageRegion.h"
#include "platform/quartzcore/compositor/LayerUpdate.h"
#include "platform/quartzcore/compositor/Scene.h"
#include "platform/quartzcore/compositor/ScenePainter.h"

namespace bkuk {

namespace {

constexpr double greatestScale = 64;

// Windows are a whole number of points high; the fraction of a pixel that rounding up added lies below.
double heightInPoints(int pixels, double scale) {
  const auto exact = pixels / scale;
  const auto whole = std::round(exact);
  return std::abs(exact - whole) * scale < 1 ? whole : exact;
}

}  // namespace

class CARenderer::Core {
 public:
  [[nodiscard]] PixelRect area() const { return {0, 0, size.width, size.height}; }

  // From the root's superspace, y up, to device pixels.
  [[nodiscard]] CGAffineTransform toDevice() const {
    return {scale, 0, 0, -scale, 0, scale * heightInPoints(size.height, scale)};
  }

  void damageAll() {
    damage.clear();
    damage.add(area());
  }

  // Whether nothing changed since the last update but what that brought about.
  [[nodiscard]] bool isUpToDate() const { return !root || !LayerAccess::marks(*root).renderBelow; }
  void update();
  void drawWhatCameInSight();
  void repaint(double time);
  void repaint(const PixelRect& rect, double time, ScenePainter& painter);
  void countPaintedLayers();

  Ref<CALayer> root;
  PixelSize size;
  double scale = 1;
  host::Bitmap image;
  DamageRegion damage;
  DamageRegion presented;
  LayerUpdate::Layers cameInSight;
  Scene scene;
  std::vector<const CALayer*> paintedLayers;
  std::size_t paintedLayerCount = 0;
  std::function<void()> changeHandler;
  bool isCommitting = false;
};

void CARenderer::Core::update() {
  if (isUpToDate() || image.isEmpty()) return;
  LayerUpdate(area(), LayerAnimator::shared().time(), damage, cameInSight).run(*root, toDevice());
}

void CARenderer::Core::drawWhatCameInSight() {
  update();
  const auto waiting = std::exchange(cameInSight, {});
  for (const auto& layer : waiting) {
    if (root && layer->isDescendantOf(root.get())) LayerAccess::displayAgain(*layer);
  }
}

void CARenderer::Core::repaint(double time) {
  paintedLayers.clear();
  ScenePainter painter(image);
  for (const auto& rect : damage.rects()) {
    if (root) {
      repaint(rect, time, painter);
    } else {
      image.fill(rect, 0);
    }
  }
  countPaintedLayers();
}

void CARenderer::Core::repaint(const PixelRect& rect, double time, ScenePainter& painter) {
  scene.build(*root, toDevice(), area(), rect, time);
  painter.paint(scene, rect);
  for (const auto& item : scene.items()) {
    if (!item.isHidden && item.layer) paintedLayers.push_back(item.layer);
  }
}

void CARenderer::Core::countPaintedLayers() {
  std::ranges::sort(paintedLayers);
  const auto end = std::unique(paintedLayers.begin(), paintedLayers.end());
  paintedLayerCount = static_cast<std::size_t>(end - paintedLayers.begin());
}

CARenderer::CARenderer() : core_(std::make_shared<Core>()) { RendererList::shared().add(*this); }

CARenderer::~CARenderer() {
  RendererList::shared().remove(*this);
  if (core_->root) LayerAccess::setRenderer(*core_->root, nullptr);
  ++CALayer::treeVersion_;
  core_->root = nullptr;  // a commit that this ends goes on with the core
}

void CARenderer::setLayer(Ref<CALayer> root) {
  if (root == core_->root) return;
  if (root && LayerAccess::container(*root))
    fatal("the root layer of a window cannot have a superlayer", "CARenderer");
  if (root && LayerAccess::renderer(*root)) {
    fatal("a layer cannot be the root of two windows", "CARenderer");
  }
  if (core_->root) LayerAccess::setRenderer(*core_->root, nullptr);
  core_->root = std::move(root);
  if (core_->root) LayerAccess::setRenderer(*core_->root, this);
  setNeedsRenderAll();
}

const Ref<CALayer>& CARenderer::layer() const { return core_->root; }

void CARenderer::setSize(host::PixelSize size, double scale) {
  if (!(scale > 0) || !std::isfinite(scale)) scale = 1;
  scale = std::min(scale, greatestScale);
  if (size == core_->size && scale == core_->scale) return;
  core_->image = host::Bitmap(size);
  core_->size = core_->image.size();
  core_->scale = scale;
  setNeedsRenderAll();
}

host::PixelSize CARenderer::size() const { return core_->size; }

double CARenderer::scale() const { return core_->scale; }

CGAffineTransform CARenderer::toDevice() const { return core_->toDevice(); }

void CARenderer::setChangeHandler(std::function<void()> handler) {
  core_->changeHandler = std::move(handler);
}

void CARenderer::treeDidChange() {
  if (core_->changeHandler) core_->changeHandler();
}

bool CARenderer::needsCommit() const {
  if (!core_->root) return false;
  return LayerAccess::marks(*core_->root).commitBelow || (!core_->isUpToDate() && !core_->image.isEmpty());
}

void CARenderer::commit() {
  if (!core_->root || core_->isCommitting) return;
  const auto core = core_;
  const auto root = core->root;
  core->isCommitting = true;
  layoutMarked(*root);
  displayMarked(*root);
  if (core->root) LayerAnimator::shared().start(*this);
  if (core->root) core->drawWhatCameInSight();
  core->isCommitting = false;
}

void CARenderer::setNeedsRenderAll() {
  ++CALayer::treeVersion_;
  core_->damageAll();
  if (core_->root) LayerAccess::markRender(*core_->root, LayerAccess::Effect::rearrange);
  treeDidChange();
}

bool CARenderer::hasDamage() const {
  return !core_->image.isEmpty() && (!core_->damage.isEmpty() || !core_->isUpToDate());
}

std::span<const host::PixelRect> CARenderer::render() {
  auto& core = *core_;
  core.presented.clear();
  if (!hasDamage()) return {};
  core.update();
  if (core.damage.isEmpty()) return {};
  core.repaint(LayerAnimator::shared().time());
  std::swap(core.damage, core.presented);
  core.damage.clear();
  return core.presented.rects();
}

const host::Bitmap& CARenderer::image() const { return core_->image; }

std::size_t CARenderer::paintedLayerCount() const { return core_->paintedLayerCount; }

}  // namespace bkuk
