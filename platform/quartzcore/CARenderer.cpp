#include "platform/quartzcore/CARenderer.h"

#include <algorithm>
#include <cmath>

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

  void repaint(double time);
  void repaint(const PixelRect& rect, double time, ScenePainter& painter);
  void countPaintedLayers();

  Ref<CALayer> root;
  PixelSize size;
  double scale = 1;
  host::Bitmap image;
  DamageRegion damage;
  DamageRegion presented;
  Scene scene;
  std::vector<const CALayer*> paintedLayers;
  std::size_t paintedLayerCount = 0;
  std::function<void()> changeHandler;
  bool isCommitting = false;
};

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

CARenderer::CARenderer() : core_(std::make_unique<Core>()) { RendererList::shared().add(*this); }

CARenderer::~CARenderer() {
  RendererList::shared().remove(*this);
  if (core_->root) LayerAccess::setRenderer(*core_->root, nullptr);
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

void CARenderer::setChangeHandler(std::function<void()> handler) {
  core_->changeHandler = std::move(handler);
}

void CARenderer::treeDidChange() {
  if (core_->changeHandler) core_->changeHandler();
}

bool CARenderer::needsCommit() const { return core_->root && LayerAccess::marks(*core_->root).commitBelow; }

void CARenderer::commit() {
  if (!core_->root || core_->isCommitting) return;
  const auto root = core_->root;
  core_->isCommitting = true;
  layoutMarked(*root);
  displayMarked(*root);
  core_->isCommitting = false;
  LayerAnimator::shared().start(*this);
}

void CARenderer::setNeedsRenderAll() {
  core_->damageAll();
  if (core_->root) LayerAccess::markRender(*core_->root, LayerAccess::Effect::rearrange);
  treeDidChange();
}

bool CARenderer::hasDamage() const {
  return !core_->damage.isEmpty() || (core_->root && LayerAccess::marks(*core_->root).renderBelow);
}

std::span<const host::PixelRect> CARenderer::render() {
  auto& core = *core_;
  core.presented.clear();
  if (!hasDamage() || core.image.isEmpty()) return {};
  const auto time = LayerAnimator::shared().time();
  if (core.root) LayerUpdate(core.area(), time, core.damage).run(*core.root, core.toDevice());
  if (core.damage.isEmpty()) return {};
  core.repaint(time);
  std::swap(core.damage, core.presented);
  core.damage.clear();
  return core.presented.rects();
}

const host::Bitmap& CARenderer::image() const { return core_->image; }

std::size_t CARenderer::paintedLayerCount() const { return core_->paintedLayerCount; }

}  // namespace bkuk
