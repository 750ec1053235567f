#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/coregraphics/CGAffineTransform.h"
#include "platform/coregraphics/CGColor.h"
#include "platform/foundation/CGGeometry.h"
#include "platform/foundation/MarkedChildren.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/WeakDelegate.h"
#include "platform/quartzcore/CAAction.h"
#include "platform/quartzcore/CALayerContents.h"
#include "platform/quartzcore/CATransform3D.h"
#include "platform/quartzcore/CAValue.h"

namespace bkuk {

class CAAnimation;
class CALayerDelegate;
class CARenderer;
class CGContext;
class CGPath;
class SublayerIndex;

/// Corners of a layer's bounds, in its own bounds space: MinY is the lower edge where y points up.
enum CACornerMask : unsigned {
  CALayerMinXMinYCorner = 1,
  CALayerMaxXMinYCorner = 2,
  CALayerMinXMaxYCorner = 4,
  CALayerMaxXMaxYCorner = 8,
  CALayerAllCorners = 15,
};

/// Which margins and extents of a sublayer follow when its superlayer's size changes.
enum CAAutoresizingMask : unsigned {
  CALayerNotSizable = 0,
  CALayerMinXMargin = 1,
  CALayerWidthSizable = 2,
  CALayerMaxXMargin = 4,
  CALayerMinYMargin = 8,
  CALayerHeightSizable = 16,
  CALayerMaxYMargin = 32,
};

namespace detail {

template <typename T>
bool isSameValue(const T& a, const T& b) {
  return a == b;
}
template <typename T>
bool isSameValue(const Ref<T>& a, const Ref<T>& b) {
  return a == b || (a && b && a->isEqual(b.get()));
}

}  // namespace detail

/// A rectangle on the screen with a background, a border, contents and layers inside it.
///
/// A superlayer owns its sublayers. Setters compare first, and an equal value does nothing; a real change
/// looks its action up, stores the value and runs the action, see `action`. Layers only describe: a
/// `CARenderer` paints the tree that hangs in its window, after the layers that are marked were laid out
/// and displayed. Numbers that are not finite are kept and read back; what they leave without a place is
/// not painted. Main thread only.
class CALayer : public NSObject {
 public:
  CALayer();
  /// The copy that shows a layer as it is animated now; never used for anything else. It shares the values
  /// and has no sublayers. A subclass with properties of its own copies them here and overrides
  /// `makePresentationCopy`.
  CALayer(const CALayer& model);
  ~CALayer() override;

  // Geometry

  [[nodiscard]] const CGRect& bounds() const { return values_.bounds; }
  /// A change of the size resizes the sublayers by their masks and marks the layer for layout.
  void setBounds(const CGRect& bounds);
  /// Where the anchor point lies in the superlayer's bounds space.
  [[nodiscard]] CGPoint position() const { return values_.position; }
  void setPosition(CGPoint position);
  /// In fractions of the bounds, measured in the superlayer's direction of y.
  [[nodiscard]] CGPoint anchorPoint() const { return values_.anchorPoint; }
  void setAnchorPoint(CGPoint anchorPoint);
  /// Applied about the anchor point.
  [[nodiscard]] const CATransform3D& transform() const { return rare().transform; }
  void setTransform(const CATransform3D& transform);
  [[nodiscard]] CGAffineTransform affineTransform() const;
  void setAffineTransform(const CGAffineTransform& transform);
  /// Sublayers with a greater value lie above those with a smaller one; equal ones in the order of the list.
  [[nodiscard]] CGFloat zPosition() const { return values_.zPosition; }
  void setZPosition(CGFloat zPosition);

  /// The box around the transformed bounds in the superlayer's bounds space.
  [[nodiscard]] CGRect frame() const;
  /// Sets the size of the bounds and the position. With a transform other than the identity the result is
  /// undefined.
  void setFrame(const CGRect& frame);

  /// Turns the bounds space over, relative to the superlayer's: sublayers and contents run the other way.
  [[nodiscard]] bool isGeometryFlipped() const { return values_.geometryFlipped; }
  void setGeometryFlipped(bool flipped);
  /// Whether y runs down on the screen in the bounds space, all superlayers counted.
  [[nodiscard]] bool contentsAreFlipped() const;

  /// Between the bounds spaces of two layers of one tree; an absent layer stands for the root's superspace.
  [[nodiscard]] CGPoint convertPointTo(CGPoint point, const CALayer* layer) const;
  [[nodiscard]] CGPoint convertPointFrom(CGPoint point, const CALayer* layer) const;
  /// The box around the mapped rectangle.
  [[nodiscard]] CGRect convertRectTo(const CGRect& rect, const CALayer* layer) const;
  [[nodiscard]] CGRect convertRectFrom(const CGRect& rect, const CALayer* layer) const;

  /// Whether a point of the bounds space lies in the bounds.
  [[nodiscard]] virtual bool contains(CGPoint point) const;
  /// The farthest descendant that contains a point of the superlayer's bounds space, front to back, or the
  /// layer itself; none when it is hidden or the point lies outside. Masks and corners do not count, and
  /// sublayers outside a layer that does not contain the point are not asked.
  [[nodiscard]] Ref<CALayer> hitTest(CGPoint point);

  [[nodiscard]] unsigned autoresizingMask() const { return autoresizingMask_; }
  void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }

  // Tree

  /// Back to front.
  [[nodiscard]] const std::vector<Ref<CALayer>>& sublayers() const;
  void setSublayers(std::vector<Ref<CALayer>> sublayers);
  [[nodiscard]] Ref<CALayer> superlayer() const { return isMask_ ? nullptr : Ref<CALayer>(container_); }
  /// Adding moves a layer from where it was to the end of the list or to the place named. A layer cannot be
  /// added to itself or below itself: that is a fatal error.
  void addSublayer(const Ref<CALayer>& layer);
  /// An index beyond the end means the end.
  void insertSublayer(const Ref<CALayer>& layer, std::size_t index);
  /// A sibling that is no sublayer: below means first, above means last.
  void insertSublayerBelow(const Ref<CALayer>& layer, const CALayer& sibling);
  void insertSublayerAbove(const Ref<CALayer>& layer, const CALayer& sibling);
  /// Does nothing when `old` is no sublayer.
  void replaceSublayer(const CALayer& old, const Ref<CALayer>& replacement);
  void removeFromSuperlayer();
  /// Whether this layer is `other` or lies below it.
  [[nodiscard]] bool isDescendantOf(const CALayer* other) const;

  /// A layer in this one's bounds space whose alpha multiplies this layer with all its sublayers. Owned. One
  /// that has a superlayer is a fatal error.
  [[nodiscard]] const Ref<CALayer>& mask() const { return rare().mask; }
  void setMask(Ref<CALayer> mask);

  // Appearance

  [[nodiscard]] const Ref<CGColor>& backgroundColor() const { return values_.backgroundColor; }
  void setBackgroundColor(Ref<CGColor> color);
  /// Fills the bounds, above the background.
  [[nodiscard]] const Ref<CALayerContents>& contents() const { return values_.contents; }
  void setContents(Ref<CALayerContents> contents);
  /// Pixels per point of the bitmap that `display` makes; 1 unless set.
  [[nodiscard]] CGFloat contentsScale() const { return values_.contentsScale; }
  void setContentsScale(CGFloat scale);

  /// Rounds background and border; contents and sublayers only where the layer masks to its bounds. Cut
  /// to half the smaller side.
  [[nodiscard]] CGFloat cornerRadius() const { return values_.cornerRadius; }
  void setCornerRadius(CGFloat radius);
  [[nodiscard]] unsigned maskedCorners() const { return values_.maskedCorners; }
  void setMaskedCorners(unsigned corners);
  /// Painted inside the bounds, above contents and sublayers.
  [[nodiscard]] CGFloat borderWidth() const { return values_.borderWidth; }
  void setBorderWidth(CGFloat width);
  [[nodiscard]] const Ref<CGColor>& borderColor() const { return values_.borderColor; }
  void setBorderColor(Ref<CGColor> color);

  /// 0 to 1, of the layer with all its sublayers; kept in single precision.
  [[nodiscard]] CGFloat opacity() const { return values_.opacity; }
  void setOpacity(CGFloat opacity);
  [[nodiscard]] bool isHidden() const { return values_.hidden; }
  void setHidden(bool hidden);
  [[nodiscard]] bool masksToBounds() const { return values_.masksToBounds; }
  void setMasksToBounds(bool masks);
  /// A promise that the contents cover the bounds.
  [[nodiscard]] bool isOpaque() const { return values_.opaque; }
  void setOpaque(bool opaque);

  /// The shadow of the composed layer, or of `shadowPath`, falls below it; a layer that masks to its bounds
  /// has none outside them.
  [[nodiscard]] const Ref<CGColor>& shadowColor() const { return rare().shadowColor; }
  void setShadowColor(Ref<CGColor> color);
  [[nodiscard]] CGFloat shadowOpacity() const { return values_.shadowOpacity; }
  void setShadowOpacity(CGFloat opacity);
  /// y points up on the screen, whichever way the geometry is turned over.
  [[nodiscard]] CGSize shadowOffset() const { return rare().shadowOffset; }
  void setShadowOffset(CGSize offset);
  /// The standard deviation of the blur, in points.
  [[nodiscard]] CGFloat shadowRadius() const { return rare().shadowRadius; }
  void setShadowRadius(CGFloat radius);
  [[nodiscard]] const Ref<CGPath>& shadowPath() const { return rare().shadowPath; }
  void setShadowPath(const Ref<CGPath>& path);

  /// Hints, kept for the reader.
  [[nodiscard]] bool shouldRasterize() const { return rare().shouldRasterize; }
  void setShouldRasterize(bool rasterize);
  [[nodiscard]] CGFloat rasterizationScale() const { return rare().rasterizationScale; }
  void setRasterizationScale(CGFloat scale);

  [[nodiscard]] const std::string& name() const { return rare().name; }
  void setName(std::string name);

  // Layout

  void setNeedsLayout();
  [[nodiscard]] bool needsLayout() const { return marks_.layout; }
  /// Lays out this layer's sublayers; asks the delegate. Called for a marked layer at commit, superlayers
  /// first, after the mark was cleared.
  virtual void layoutSublayers();
  /// Lays out now what is marked, from the farthest marked superlayer down to all descendants.
  void layoutIfNeeded();

  // Display

  /// Asks for one `display` at the next commit, if the layer hangs in a window by then. A bitmap is drawn
  /// then only in or near what the window shows, else when the layer comes there; it goes again with the
  /// layer. Of a layer of too many pixels only that part is drawn.
  void setNeedsDisplay();
  [[nodiscard]] bool needsDisplay() const { return marks_.display; }
  /// Clears the mark and displays, now, when the layer is marked.
  void displayIfNeeded();
  /// Makes the contents: by the delegate's `displayLayer`, else by drawing into a bitmap of device pixels. An
  /// override that does not call this makes no bitmap.
  virtual void display();
  /// Paints the contents; asks the delegate. The context's user space is the bounds space.
  virtual void draw(CGContext& context);
  /// When true, a change of the size of the bounds marks the layer for display.
  [[nodiscard]] bool needsDisplayOnBoundsChange() const { return needsDisplayOnBoundsChange_; }
  void setNeedsDisplayOnBoundsChange(bool needs) { needsDisplayOnBoundsChange_ = needs; }
  /// Whether each change of that key, by setter, by `setValue` or by a running animation, marks the layer for
  /// display. Answers the same every time; false here.
  [[nodiscard]] virtual bool needsDisplay(std::string_view key) const;

  // Values by key

  /// Properties under their names, any other key as it was stored. None for what is not there. A subclass
  /// with properties of its own answers them and leaves the rest to its base.
  [[nodiscard]] virtual CAValue value(std::string_view key) const;
  /// A value of another type than the property's is ignored.
  virtual void setValue(const CAValue& value, std::string_view key);

  // Delegate, actions and animations

  [[nodiscard]] CALayerDelegate* delegate() const { return delegate_.get(); }
  /// Held weakly. Must be an `NSObject` as well; another one is a fatal error.
  void setDelegate(CALayerDelegate* delegate);

  [[nodiscard]] CAActions actions() const;
  void setActions(CAActions actions);
  /// The actions of the layer's style; asked after its own.
  [[nodiscard]] CAActions styleActions() const;
  void setStyleActions(CAActions actions);

  /// What a change of the property runs: the delegate's answer, else the one in `actions`, else the style's,
  /// else the default action. Not asked while the transaction disables actions. An override replaces
  /// the whole search.
  [[nodiscard]] virtual Ref<CAAction> action(std::string_view key);
  /// A `CABasicAnimation` for an animatable property, none for any other key.
  [[nodiscard]] virtual Ref<CAAction> defaultAction(std::string_view key) const;

  /// Adds a copy, in place of the one that has the key. An empty key is none, and nothing is replaced.
  /// A duration of 0 becomes the transaction's. It starts at the next commit if the layer hangs in a
  /// window by then, and is dropped otherwise.
  void add(const CAAnimation& animation, std::string_view key);
  [[nodiscard]] Ref<CAAnimation> animation(std::string_view key) const;
  /// In the order in which they were added.
  [[nodiscard]] std::vector<std::string> animationKeys() const;
  void removeAnimation(std::string_view key);
  void removeAllAnimations();

  /// A copy with the values as they are animated now; none before the first commit in a window. The same
  /// object until a value or the time changes.
  [[nodiscard]] Ref<CALayer> presentation() const;
  /// Of a presentation copy its layer, else the layer itself.
  [[nodiscard]] Ref<CALayer> model();

 protected:
  /// What a change of a property asks of the renderer.
  enum class Effect : std::uint8_t {
    none,
    repaint,   ///< the layer's own box looks different
    rearrange  ///< it and everything below it moved, came or went
  };

  /// A copy through the copy constructor of the object's own class: `return presentationCopyOf(*this);`
  [[nodiscard]] virtual Ref<CALayer> makePresentationCopy() const;
  /// The copy of `model`, without its `didInit()`: everything is set up already.
  template <typename T>
  [[nodiscard]] static Ref<CALayer> presentationCopyOf(const T& model) {
    return Ref<CALayer>::adopt(new T(model));
  }

  /// The body of a property's setter, for subclasses too: see the class comment. An object is to be moved
  /// in, because the action may do away with whoever else holds it.
  template <typename T, typename Value>
  requires std::same_as<std::remove_cvref_t<Value>, T>
  void change(std::string_view key, T& field, Value&& value, Effect effect = Effect::repaint);

  /// Paints what a subclass shows between background and border, in the bounds space. Called on a
  /// presentation copy while the layer animates; must call no client code. `alpha` of the context is set by
  /// the caller.
  virtual void paint(CGContext& context) const;
  /// The box around what `paint` touches, in the bounds space; empty when it paints nothing.
  [[nodiscard]] virtual CGRect paintedBox() const;
  /// Whether what `paint` paints is cut to the bounds and their round corners.
  [[nodiscard]] virtual bool cutsPaintToBounds() const { return false; }

 private:
  friend class CARenderer;
  friend class LayerAccess;

  struct Values {
    CGRect bounds;
    CGPoint position;
    CGPoint anchorPoint{0.5, 0.5};
    CGFloat zPosition = 0;
    CGFloat contentsScale = 1;
    CGFloat cornerRadius = 0;
    CGFloat borderWidth = 0;
    Ref<CGColor> backgroundColor;
    Ref<CGColor> borderColor;
    Ref<CALayerContents> contents;
    float opacity = 1;
    float shadowOpacity = 0;
    unsigned maskedCorners = CALayerAllCorners;
    bool hidden = false;
    bool masksToBounds = false;
    bool opaque = false;
    bool geometryFlipped = false;
  };
  /// The values that most layers leave as they are; made when one is set.
  struct RareValues {
    CATransform3D transform;
    CGFloat shadowRadius = 3;
    CGFloat rasterizationScale = 1;
    CGSize shadowOffset{0, -3};
    Ref<CGColor> shadowColor = CGColor::black();
    Ref<CGPath> shadowPath;
    Ref<CALayer> mask;
    std::string name;
    bool shouldRasterize = false;
  };
  /// What the next commit and the next render have to look at.
  struct Marks {
    bool layout = false;
    bool display = false;
    bool commitBelow = true;  // here or below: a mark of the above, a layer new to commits, a new animation
    bool repaint = false;
    bool rearrange = true;
    bool renderBelow = true;  // here or below: one of the two above
  };
  /// What the renderer painted of the layer last, in device pixels.
  struct Record {
    host::PixelRect own;      // with shadow and border, without sublayers
    host::PixelRect subtree;  // with sublayers
    host::PixelRect left;     // where layers that have gone since were
    host::PixelRect inside;   // what its superlayers and its own masking leave of its sublayers
    bool shadowFollowsBelow = false;
    bool isGroup = false;  // several things under one opacity
  };
  /// What `contentsAreFlipped` found last, true as long as no tree changes.
  struct Flip {
    std::uint64_t treeVersion = 0;
    bool isFlipped = false;
  };
  /// Where the contents come from.
  enum class Drawn : std::uint8_t {
    no,       ///< set, not drawn
    wholly,   ///< into a bitmap of the whole bounds
    partly,   ///< of the part in and near what the window shows
    awaited,  ///< not yet, or no more: the layer is far from what the window shows
  };
  struct Extras;
  struct Children;

  [[nodiscard]] const RareValues& rare() const { return rare_ ? *rare_ : usualValues(); }
  [[nodiscard]] static const RareValues& usualValues();
  RareValues& ownRare();
  template <typename T>
  void changeRare(std::string_view key, T RareValues::*field, T value, Effect effect = Effect::repaint);
  Children& children();

  [[nodiscard]] Ref<CAAction> actionForChange(std::string_view key);
  [[nodiscard]] Ref<CAAction> preparedAnimation(const CAAnimation& animation) const;
  void didChange(std::string_view key, Effect effect, const Ref<CAAction>& action);
  Extras& extras();
  [[nodiscard]] bool animatesDisplay() const;
  [[nodiscard]] bool hasAnimations() const;
  [[nodiscard]] Ref<CALayer> presentationAt(double time) const;
  [[nodiscard]] Ref<const CALayer> shownNow() const;
  void sizeDidChange(CGSize oldSize);
  void resizeSublayers(CGSize oldSize);
  void drawBitmap();
  void keepDrawing(const Ref<CALayerContents>& contents, Drawn drawn);

  void insert(const Ref<CALayer>& layer, std::size_t index);
  void attach(CALayer& layer, bool asMask);
  void detachFromContainer();
  void markCommit();
  void markRender(Effect effect);

  /// Counts the changes of all trees and of what is arranged in them.
  static std::uint64_t treeVersion_;

  Values values_;
  Record record_;
  CALayer* container_ = nullptr;    // the superlayer, or the layer that this is the mask of
  CARenderer* renderer_ = nullptr;  // of a root
  WeakDelegate<CALayerDelegate> delegate_;
  std::unique_ptr<RareValues> rare_;
  std::unique_ptr<Children> children_;  // of layers with sublayers
  std::unique_ptr<Extras> extras_;      // what few layers have
  mutable Flip flip_;
  // Where it stands among the sublayers, those to commit and those to render. Of no meaning in a mask.
  std::uint32_t place_ = 0;
  std::uint32_t commitPlace_ = notMarked;
  std::uint32_t renderPlace_ = notMarked;
  Marks marks_;
  Drawn drawn_ = Drawn::no;
  bool isMask_ = false;
  bool isCommitted_ = false;
  bool isPresentation_ = false;
  bool needsDisplayOnBoundsChange_ = false;
  unsigned autoresizingMask_ = CALayerNotSizable;
};

template <typename T>
void CALayer::changeRare(std::string_view key, T RareValues::*field, T value, Effect effect) {
  if (!detail::isSameValue(rare().*field, value)) change(key, ownRare().*field, std::move(value), effect);
}

template <typename T, typename Value>
requires std::same_as<std::remove_cvref_t<Value>, T>
void CALayer::change(std::string_view key, T& field, Value&& value, Effect effect) {
  if (detail::isSameValue(field, value)) return;
  const Ref<CALayer> self(this);
  const auto action = actionForChange(key);
  field = std::forward<Value>(value);
  didChange(key, effect, action);
}

}  // namespace bkuk
