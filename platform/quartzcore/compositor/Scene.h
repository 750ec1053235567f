#pragma once

#include <span>
#include <vector>

#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/compositor/LayerBox.h"
#include "platform/quartzcore/compositor/LayerShadow.h"

namespace bkuk {

/// What is painted into one damaged rectangle, as a list from back to front, and what of it can be seen.
///
/// Groups are pairs in the list: what lies between them is painted into an image of its own, which is then
/// composed as one. There is one only where several things under one opacity, mask, rounded clip or shadow
/// overlap.
class Scene {
 public:
  struct Item {
    enum class Kind {
      fill,        ///< the box in `color`
      ring,        ///< `width` pixels along the box's edge in `color`
      contents,    ///< the layer's bitmap
      custom,      ///< what the layer's class paints
      shadow,      ///< of the box or the shadow path
      groupBegin,  ///< until `groupEnd`
      maskBegin,   ///< what comes until `groupEnd` multiplies the group
      groupEnd
    };

    Kind kind;
    bool isHidden = false;    ///< nothing of it can be seen
    bool isFlipped = false;   ///< y runs down in the layer's bounds space
    bool clipsToBox = false;  ///< of a group: it is cut to the box's outline
    bool hasMask = false;     ///< of a group
    PixelRect rect{};         ///< the pixels it may touch
    PixelRect surface{};  ///< of a group: the pixels of its image, more than `rect` where a shadow needs them
    const CALayer* layer = nullptr;  ///< as it is shown; lives as long as the scene
    std::size_t box = 0;
    double alpha = 1;
    Pixel color = 0;
    int width = 0;
    LayerShadow shadow{};
    std::size_t firstCover = 0;  ///< of a shadow: what will cover parts of it
    std::size_t coverCount = 0;
  };

  Scene();
  ~Scene();

  /// Lists what of the tree touches `area`, a part of the pixels of `image`, as it is at `time`. `toDevice`
  /// maps the root's superspace.
  void build(CALayer& root, const CGAffineTransform& toDevice, const PixelRect& image, const PixelRect& area,
             double time);

  [[nodiscard]] const std::vector<Item>& items() const { return items_; }
  [[nodiscard]] const LayerBox& box(const Item& item) const { return boxes_[item.box]; }
  /// Opaque rectangles that will be painted over parts of the item.
  [[nodiscard]] std::span<const PixelRect> covers(const Item& item) const {
    return std::span(covers_).subspan(item.firstCover, item.coverCount);
  }
  /// Whether opaque items cover all of the area.
  [[nodiscard]] bool coversArea() const { return coversArea_; }

 private:
  struct Step;
  struct Place;
  using Kind = Item::Kind;

  void take(const Step& step);
  void enter(const Step& step);
  void list(const Place& place, double alpha);
  void listContent(const Place& place, double alpha);
  void listInside(const Place& place, double alpha);
  void listBorder(const Step& step);
  void listMask(const Step& step);
  void openGroup(const Place& place, Item group);
  void pushAfter(const Place& place, Step step);
  void pushSublayers(const Place& place, double alpha);
  [[nodiscard]] PixelRect subtreeRect(const Place& place) const;
  [[nodiscard]] PixelRect contentRect(const Place& place) const;
  Item& add(Kind kind, const Place& place, const PixelRect& rect, double alpha);
  void hideCovered(const PixelRect& area);

  std::vector<Item> items_;
  std::vector<LayerBox> boxes_;
  std::vector<PixelRect> covers_;
  std::vector<Step> steps_;
  std::vector<Ref<const CALayer>> shown_;
  std::vector<CALayer*> order_;
  std::size_t openGroups_ = 0;
  double time_ = 0;
  bool coversArea_ = false;
};

}  // namespace bkuk
