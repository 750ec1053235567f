#pragma once

#include "platform/quartzcore/CALayer.h"

namespace bkuk {

/// What the compositor sees of layers beyond their public members.
class LayerAccess {
 public:
  using Values = CALayer::Values;
  using Marks = CALayer::Marks;
  using Record = CALayer::Record;
  using Effect = CALayer::Effect;

  static const Values& values(const CALayer& layer) { return layer.values_; }
  static Marks& marks(CALayer& layer) { return layer.marks_; }
  using Children = CALayer::Children;
  /// Null for a layer that never had sublayers.
  static Children* children(const CALayer& layer) { return layer.children_.get(); }
  static bool mayBeTransformed(const CALayer& layer) { return layer.rare_ != nullptr; }
  static Record& record(CALayer& layer) { return layer.record_; }
  static const Record& record(const CALayer& layer) { return layer.record_; }
  static CALayer* container(const CALayer& layer) { return layer.container_; }
  static CARenderer* renderer(const CALayer& layer) { return layer.renderer_; }
  static void setRenderer(CALayer& layer, CARenderer* renderer) { layer.renderer_ = renderer; }
  /// Grows with every change of any tree.
  static std::uint64_t treeVersion() { return CALayer::treeVersion_; }
  static void setCommitted(CALayer& layer) { layer.isCommitted_ = true; }
  static void markCommit(CALayer& layer) { layer.markCommit(); }
  static void markRender(CALayer& layer, Effect effect) { layer.markRender(effect); }

  static CGRect paintedBox(const CALayer& layer) { return layer.paintedBox(); }
  static bool cutsPaintToBounds(const CALayer& layer) { return layer.cutsPaintToBounds(); }
  static void paint(const CALayer& layer, CGContext& context) { layer.paint(context); }

  using Drawn = CALayer::Drawn;
  static Drawn drawn(const CALayer& layer) { return layer.drawn_; }
  static bool isMask(const CALayer& layer) { return layer.isMask_; }
  /// Lets the bitmap go until the layer comes into sight again.
  static void dropDrawing(CALayer& layer);
  /// Displays, marked or not.
  static void displayAgain(CALayer& layer);

  /// The layer as it is shown at `time`: its presentation copy while it animates, else itself.
  static Ref<const CALayer> shown(const CALayer& layer, double time);

  /// Gives the animations that wait for it their start. Whether the layer has to be stepped from now on.
  static bool startAnimations(CALayer& layer, double now);
  /// Ends the animations that still wait for a start.
  static void dropUnstartedAnimations(CALayer& layer);
  /// Marks what moved and ends what is over. Whether anything goes on.
  static bool stepAnimations(CALayer& layer, double now);
};

/// Sublayers in the order in which they are painted: by zPosition, then by place in the list.
void appendInPaintingOrder(const CALayer& layer, std::vector<CALayer*>& out);

}  // namespace bkuk
