// Random trees that change at random: what repainting the damage leaves must be what painting all of it
// gives.

#include <gtest/gtest.h>
#include <numbers>

#include "platform/coregraphics/CGMutablePath.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CAGradientLayer.h"
#include "platform/quartzcore/CAShapeLayer.h"
#include "tests/quartzcore/LayerWindow.h"
#include "tests/support/RandomRun.h"

namespace bkuk {
namespace {

constexpr int windowWidth = 64;
constexpr int windowHeight = 48;
constexpr std::size_t mostLayers = 25;

class RandomTree {
 public:
  explicit RandomTree(unsigned seed)
      : random_(seed), window_(windowWidth, windowHeight, random_.from<double>({1, 1.25, 1.5, 2})) {
    for (int i = 0; i < 10; ++i) addLayer();
    if (random_.once(3)) addRows();
  }

  /// A few changes, a turn, and the time that passed before the next one.
  void step() {
    window_.animates = random_.once(4);
    CATransaction::setDisableActions(!window_.animates);
    CATransaction::setAnimationDuration(random_.between(0.02, 0.3));
    for (int i = random_.below(3); i >= 0; --i) change();
    window_.update();
    // Mostly less than a frame, so that changes fall between two.
    if (random_.once(2)) window_.host->advance(random_.between(0, 0.03));
    window_.update();
  }

  /// The greatest difference of any component to a whole repaint of the same moment.
  [[nodiscard]] int differenceToWholeRepaint() {
    const auto partial = pixels();
    window_.renderer.setNeedsRenderAll();
    window_.renderer.render();
    const auto whole = pixels();
    int greatest = 0;
    for (std::size_t i = 0; i < whole.size(); ++i) {
      const auto difference = differenceOf(partial[i], whole[i]);
      if (difference > greatest) {
        greatest = difference;
        place_ = i;
      }
    }
    return greatest;
  }

  [[nodiscard]] std::string place() const {
    const auto width = static_cast<std::size_t>(window_.renderer.size().width);
    return std::to_string(place_ % width) + ", " + std::to_string(place_ / width);
  }
  [[nodiscard]] const std::string& lastChanges() const { return changes_; }
  void forgetChanges() { changes_.clear(); }

 private:
  [[nodiscard]] std::vector<std::uint32_t> pixels() const {
    const auto& image = window_.renderer.image();
    return {image.pixels(), image.pixels() + image.size().width * image.size().height};
  }

  static int differenceOf(std::uint32_t a, std::uint32_t b) {
    int greatest = 0;
    for (int shift = 0; shift < 32; shift += 8) {
      const auto component = [shift](std::uint32_t pixel) { return static_cast<int>(pixel >> shift & 0xff); };
      greatest = std::max(greatest, std::abs(component(a) - component(b)));
    }
    return greatest;
  }

  // Values

  CGFloat coordinate(double low, double high) {
    const auto value = random_.between(low, high);
    return random_.once(3) ? value : std::floor(value);
  }
  CGRect rect() {
    return {coordinate(-20, windowWidth), coordinate(-20, windowHeight), coordinate(0, 40),
            coordinate(0, 36)};
  }
  Ref<CGColor> color() {
    const auto alpha = random_.from<double>({0, 0.3, 1, 1, 1});
    return CGColor::srgb(random_.between(0, 1), random_.between(0, 1), random_.between(0, 1), alpha);
  }
  CGAffineTransform transform() {
    switch (random_.below(6)) {
      case 0:
        return CGAffineTransform::rotation(random_.between(0, 6));
      case 1:
        return CGAffineTransform::rotation(std::numbers::pi / 2 * random_.below(4));
      case 2:
        return CGAffineTransform::scale(random_.between(0.3, 2), random_.between(0.3, 2));
      case 3:
        return CGAffineTransform::scale(random_.once(2) ? -1 : 1, random_.once(2) ? -1 : 1);
      default:
        return {};
    }
  }
  Ref<CALayerContents> contents() {
    host::Bitmap bitmap({1 + random_.below(60), 1 + random_.below(50)});
    const auto size = bitmap.size();
    for (int i = 0; i < 8; ++i) {
      const auto shade = static_cast<std::uint32_t>(random_.below(256)) * 0x10101;
      bitmap.fill({random_.below(size.width), random_.below(size.height), 9, 9}, 0xff000000 | shade);
    }
    const auto scale = random_.once(2) ? window_.renderer.scale() : 1;
    if (size.width % 2 == 0) return make<CALayerContents>(std::move(bitmap), scale);
    const auto piece = std::make_shared<const host::Bitmap>(std::move(bitmap));
    return make<CALayerContents>(std::vector<PaintedPiece>{PaintedImage{piece, 9, -7}}, size, scale);
  }
  Ref<CGPath> path() {
    auto path = make<CGMutablePath>();
    path->move({coordinate(-10, 20), coordinate(-10, 20)});
    for (int i = 0; i < 3; ++i) path->addLine({coordinate(-10, 60), coordinate(-10, 60)});
    path->closeSubpath();
    return path;
  }

  // Layers

  Ref<CALayer> makeLayer() {
    switch (random_.below(8)) {
      case 0: {
        auto gradient = make<CAGradientLayer>();
        gradient->setColors(CAGradientLayer::Colors{color(), color()});
        return gradient;
      }
      case 1: {
        auto shape = make<CAShapeLayer>();
        shape->setPath(path());
        shape->setFillColor(color());
        shape->setStrokeColor(color());
        return shape;
      }
      default:
        return make<CALayer>();
    }
  }

  Ref<CALayer> newLayer() {
    auto layer = makeLayer();
    layer->setFrame(rect());
    layer->setBackgroundColor(color());
    if (random_.once(3)) layer->setContents(contents());
    if (random_.once(3)) castShadow(*layer);
    return layer;
  }

  void addLayer() {
    const auto layer = newLayer();
    (layers_.empty() || random_.once(3) ? window_.root : random_.from(layers_))->addSublayer(layer);
    layers_.push_back(layer);
  }

  // As many as are worth an index.
  void addRows() {
    const auto list = window_.add({5, 5, 40, 40}, random_.once(2) ? color() : nullptr);
    layers_.push_back(list);
    for (int i = 0; i < 40; ++i) {
      rows_.push_back(window_.add({i % 8 * 6.0, i / 8 * 6.0, 5, 5}, color(), list));
    }
  }

  void castShadow(CALayer& layer) {
    layer.setShadowOpacity(random_.from<double>({0, 0.5, 1}));
    layer.setShadowRadius(random_.between(0, 6));
    layer.setShadowOffset({coordinate(-12, 12), coordinate(-12, 12)});
    layer.setShadowPath(random_.once(4) ? path() : nullptr);
  }

  void moveElsewhere(const Ref<CALayer>& layer) {
    const auto& target = random_.once(3) ? window_.root : random_.from(layers_);
    if (!target->isDescendantOf(layer.get())) target->insertSublayer(layer, 0);
  }

  void changeMask(CALayer& layer) {
    if (random_.once(2)) return layer.setMask(nullptr);
    const auto mask = newLayer();
    mask->addSublayer(newLayer());
    layer.setMask(mask);
  }

  void changeInMask(CALayer& layer) {
    if (!layer.mask()) return changeMask(layer);
    auto& inside = random_.once(2) ? *layer.mask() : *layer.mask()->sublayers()[0];
    random_.once(2) ? inside.setFrame(rect()) : inside.setBackgroundColor(color());
  }

  void animate(CALayer& layer) {
    static const std::vector<std::string> keys{"position",     "transform",    "opacity",      "bounds",
                                               "cornerRadius", "shadowRadius", "shadowOpacity"};
    const auto& key = random_.from(keys);
    CABasicAnimation animation(key);
    if (key == "position") animation.setByValue(CGPoint{coordinate(-60, 60), coordinate(-60, 60)});
    if (key == "transform") animation.setFromValue(CATransform3DMakeAffineTransform(transform()));
    if (key == "bounds") animation.setFromValue(rect());
    if (key != "position" && key != "transform" && key != "bounds") animation.setFromValue(CGFloat{0.5});
    animation.setDuration(random_.between(0.01, 0.4));
    animation.setAutoreverses(random_.once(2));
    layer.add(animation, random_.once(2) ? key : "");
  }

  void change() {
    const int kind = random_.below(25);
    changes_ += std::to_string(kind) + " ";
    auto layer = random_.from(layers_);
    if (!rows_.empty() && random_.once(5)) layer = random_.from(rows_);
    switch (kind) {
      case 0:
        return layers_.size() < mostLayers ? addLayer() : layer->removeFromSuperlayer();
      case 1:
        return layer->removeFromSuperlayer();
      case 2:
        return moveElsewhere(layer);
      case 3:
        return layer->setBounds({{coordinate(-20, 20), coordinate(-20, 20)}, layer->bounds().size});
      case 4:
        return layer->setAffineTransform(transform());
      case 5:
        return layer->setHidden(random_.once(2));
      case 6:
        return layer->setOpacity(random_.from<double>({0, 0.4, 1, 1}));
      case 7:
        return layer->setCornerRadius(random_.from<double>({0, 3, 8, 20}));
      case 8:
        return layer->setMaskedCorners(static_cast<unsigned>(random_.below(16)));
      case 9:
        layer->setBorderColor(color());
        return layer->setBorderWidth(random_.from<double>({0, 1, 3}));
      case 10:
        return layer->setMasksToBounds(random_.once(2));
      case 11:
      case 12:
        return castShadow(*layer);
      case 13:
        return layer->setGeometryFlipped(random_.once(2));
      case 14:
        return layer->setZPosition(random_.below(3));
      case 15:
        return layer->setContents(random_.once(3) ? nullptr : contents());
      case 16:
        return changeMask(*layer);
      case 17:
        return changeInMask(*layer);
      case 18:
      case 19:
        return animate(*layer);
      case 20:
      case 21:
        return layer->setBackgroundColor(random_.once(4) ? nullptr : color());
      default:
        return layer->setFrame(rect());
    }
  }

  RandomRun random_;
  LayerWindow window_;
  std::vector<Ref<CALayer>> layers_;
  std::vector<Ref<CALayer>> rows_;
  std::string changes_;
  std::size_t place_ = 0;
};

TEST(RandomTree, DamageRepaintsToWhatAWholeRepaintGives) {
  for (const auto seed : RandomRun::seeds({1, 2, 3, 4, 5, 6, 33, 111})) {
    RandomTree tree(seed);
    RandomRun pauses(seed);
    const int steps = RandomRun::steps(250);
    // What a whole repaint sets right hides what went wrong before, so it does not come after each step.
    for (int step = 0, next = 0; step < steps; ++step) {
      tree.step();
      if (step < next) continue;
      ASSERT_LE(tree.differenceToWholeRepaint(), 1)
          << "seed " << seed << ", step " << step << ", pixel " << tree.place() << ", since the last repaint "
          << tree.lastChanges();
      tree.forgetChanges();
      next = step + 1 + pauses.below(6);
    }
  }
}

}  // namespace
}  // namespace bkuk
