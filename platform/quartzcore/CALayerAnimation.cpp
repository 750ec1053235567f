// The part of CALayer that answers for actions, animations and the values they show.

#include <algorithm>
#include <array>

#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/CATransaction.h"
#include "platform/quartzcore/LayerAccess.h"
#include "platform/quartzcore/LayerAnimator.h"
#include "platform/quartzcore/LayerExtras.h"
#include "platform/quartzcore/TransactionLevels.h"

namespace bkuk {

namespace {

constexpr std::array<std::string_view, 15> animatableKeys{
    "bounds",      "position",        "anchorPoint",  "transform",    "zPosition",
    "opacity",     "backgroundColor", "cornerRadius", "borderWidth",  "borderColor",
    "shadowColor", "shadowOpacity",   "shadowOffset", "shadowRadius", "shadowPath"};

constexpr std::array<std::string_view, 9> rearrangingKeys{"bounds",    "position",      "anchorPoint",
                                                          "transform", "zPosition",     "opacity",
                                                          "hidden",    "masksToBounds", "frame"};

bool isIn(const auto& keys, std::string_view key) { return std::ranges::find(keys, key) != keys.end(); }

}  // namespace

// Actions

CAActions CALayer::actions() const { return extras_ ? extras_->actions : CAActions(); }

void CALayer::setActions(CAActions actions) { extras().actions = std::move(actions); }

CAActions CALayer::styleActions() const { return extras_ ? extras_->styleActions : CAActions(); }

void CALayer::setStyleActions(CAActions actions) { extras().styleActions = std::move(actions); }

Ref<CAAction> CALayer::action(std::string_view key) {
  if (const auto delegate = delegate_.lock()) {
    if (const auto answer = delegate->actionForLayer(*this, key)) return *answer;
  }
  if (extras_) {
    for (const auto* actions : {&extras_->actions, &extras_->styleActions}) {
      const auto found = actions->find(key);
      if (found != actions->end()) return found->second;
    }
  }
  return defaultAction(key);
}

Ref<CAAction> CALayer::defaultAction(std::string_view key) const {
  return isIn(animatableKeys, key) ? Ref<CAAction>(make<CABasicAnimation>(key)) : nullptr;
}

Ref<CAAction> CALayer::actionForChange(std::string_view key) {
  if (isPresentation_) return nullptr;
  auto& levels = TransactionLevels::shared();
  levels.innermost();
  if (levels.actionsAreDisabled()) return nullptr;
  const auto found = action(key);
  const auto animation = as<CAAnimation>(found);
  if (!animation) return found;
  // What has never been on the screen has nothing to come from.
  return isCommitted_ ? preparedAnimation(*animation) : nullptr;
}

// Called before the change, so that the animation starts at what is shown now.
Ref<CAAction> CALayer::preparedAnimation(const CAAnimation& animation) const {
  const auto prepared = animation.copy();
  prepared->resolveStart(*shownNow());
  if (!prepared->timingFunction()) prepared->setTimingFunction(CATransaction::animationTimingFunction());
  if (!prepared->timingFunction()) {
    prepared->setTimingFunction(make<CAMediaTimingFunction>(kCAMediaTimingFunctionDefault));
  }
  return prepared;
}

void CALayer::didChange(std::string_view key, Effect effect, const Ref<CAAction>& action) {
  if (isPresentation_) return;
  if (extras_) extras_->presentation = nullptr;
  if (effect == Effect::rearrange) ++treeVersion_;
  if (effect != Effect::none) markRender(effect);
  if (needsDisplay(key)) setNeedsDisplay();
  if (action) action->run(key, *this);
}

// Animations

bool CALayer::hasAnimations() const { return extras_ && !extras_->animations.empty(); }

void CALayer::add(const CAAnimation& animation, std::string_view key) {
  if (isPresentation_) return;
  const Ref<CALayer> self(this);
  auto& levels = TransactionLevels::shared();
  levels.innermost();
  const auto added = animation.copy();
  if (added->duration() == 0) added->setDuration(CATransaction::animationDuration());
  if (!added->timingFunction()) added->setTimingFunction(CATransaction::animationTimingFunction());
  added->resolveStart(*shownNow());
  if (!key.empty()) removeAnimation(key);
  extras().animations.push_back({std::string(key), added, std::nullopt, levels.completion()});
  extras_->presentation = nullptr;
  LayerAnimator::shared().addUnstarted(*this);
  markCommit();
}

Ref<CAAnimation> CALayer::animation(std::string_view key) const {
  if (!hasAnimations()) return nullptr;
  const auto found = std::ranges::find(extras_->animations, key, &Extras::Running::key);
  return found == extras_->animations.end() ? nullptr : found->animation;
}

std::vector<std::string> CALayer::animationKeys() const {
  std::vector<std::string> keys;
  if (!extras_) return keys;
  for (const auto& running : extras_->animations) keys.push_back(running.key);
  return keys;
}

void CALayer::removeAnimation(std::string_view key) {
  if (!animation(key)) return;
  std::erase_if(extras_->animations, [&](const auto& running) { return running.key == key; });
  extras_->presentation = nullptr;
  markRender(Effect::rearrange);
}

void CALayer::removeAllAnimations() {
  if (!hasAnimations()) return;
  extras_->animations.clear();
  extras_->presentation = nullptr;
  markRender(Effect::rearrange);
}

// Presentation

Ref<CALayer> CALayer::makePresentationCopy() const { return presentationCopyOf(*this); }

Ref<CALayer> CALayer::presentation() const {
  if (!isCommitted_ || isPresentation_) return nullptr;
  return presentationAt(hasAnimations() ? LayerAnimator::shared().time() : 0);
}

Ref<CALayer> CALayer::presentationAt(double time) const {
  auto& extras = const_cast<CALayer*>(this)->extras();
  if (extras.presentation && extras.presentationTime == time) return extras.presentation;
  auto copy = makePresentationCopy();
  for (const auto& running : extras.animations) {
    const auto progress = running.animation->progress(running.elapsed(time));
    if (progress) running.animation->apply(*copy, *this, *progress);
  }
  extras.presentation = copy;
  extras.presentationTime = time;
  return copy;
}

Ref<const CALayer> CALayer::shownNow() const {
  return hasAnimations() ? LayerAccess::shown(*this, LayerAnimator::shared().time())
                         : Ref<const CALayer>(this);
}

Ref<CALayer> CALayer::model() { return isPresentation_ ? extras_->model.lock() : Ref<CALayer>(this); }

bool CALayer::animatesDisplay() const {
  return isCommitted_ && extras_ && std::ranges::any_of(extras_->animations, [&](const auto& running) {
           return running.start && needsDisplay(running.animation->animatedKey());
         });
}

// What the compositor asks

Ref<const CALayer> LayerAccess::shown(const CALayer& layer, double time) {
  return layer.hasAnimations() ? Ref<const CALayer>(layer.presentationAt(time).get())
                               : Ref<const CALayer>(&layer);
}

bool LayerAccess::startAnimations(CALayer& layer, double now) {
  if (!layer.hasAnimations()) return false;
  for (auto& running : layer.extras_->animations) {
    if (running.start) continue;
    const auto begin = running.animation->beginTime();
    running.start = begin == 0 ? now : begin;
  }
  layer.extras_->presentation = nullptr;
  return !std::exchange(layer.extras_->isStepped, true);
}

void LayerAccess::dropUnstartedAnimations(CALayer& layer) {
  if (!layer.hasAnimations()) return;
  std::erase_if(layer.extras_->animations, [](const auto& running) { return !running.start; });
  layer.extras_->presentation = nullptr;
}

bool LayerAccess::stepAnimations(CALayer& layer, double now) {
  bool goesOn = false;
  if (layer.extras_) layer.extras_->isStepped = false;
  if (!layer.hasAnimations()) return goesOn;
  auto& animations = layer.extras_->animations;
  for (auto& running : animations) {
    const auto key = running.animation->animatedKey();
    const bool isOver = running.animation->hasEnded(running.elapsed(now));
    if (isOver) running.completion = nullptr;
    goesOn |= !isOver && running.animation->speed() != 0;
    layer.markRender(isIn(rearrangingKeys, key) ? Effect::rearrange : Effect::repaint);
    if (layer.needsDisplay(key)) layer.setNeedsDisplay();
  }
  std::erase_if(animations, [&](const auto& running) {
    return running.animation->isRemovedOnCompletion() && running.animation->hasEnded(running.elapsed(now));
  });
  layer.extras_->presentation = nullptr;
  layer.extras_->isStepped = goesOn;
  return goesOn;
}

}  // namespace bkuk
