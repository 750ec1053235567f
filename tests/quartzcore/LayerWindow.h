#pragma once

#include <cstdlib>
#include <vector>

#include "platform/quartzcore/CALayer.h"
#include "platform/quartzcore/CARenderer.h"
#include "platform/quartzcore/CATransaction.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {

/// A tree of layers as a window shows it: a white root of `width` × `height` points and its renderer. Pixels
/// count from the upper left. Changes show at once unless `animates` lets them run their actions.
struct LayerWindow {
  LayerWindow(int width, int height, double scale = 1, bool animating = false) : animates(animating) {
    renderer.setSize({static_cast<int>(width * scale), static_cast<int>(height * scale)}, scale);
    root->setFrame({0, 0, static_cast<CGFloat>(width), static_cast<CGFloat>(height)});
    root->setBackgroundColor(CGColor::white());
    renderer.setLayer(root);
    CATransaction::setDisableActions(!animates);
  }

  /// A layer in `parent`, the root unless said.
  Ref<CALayer> add(const CGRect& frame, const Ref<CGColor>& color = nullptr, Ref<CALayer> parent = nullptr) {
    auto layer = make<CALayer>();
    layer->setFrame(frame);
    layer->setBackgroundColor(color);
    (parent ? parent : root)->addSublayer(layer);
    return layer;
  }

  /// One turn's commit and the repaint after it; answers what was repainted.
  std::vector<host::PixelRect> update() {
    CATransaction::flush();
    CATransaction::setDisableActions(!animates);
    const auto damage = renderer.render();
    return {damage.begin(), damage.end()};
  }

  [[nodiscard]] std::uint32_t pixel(int x, int y) const {
    return renderer.image().row(y)[static_cast<std::size_t>(x)];
  }
  [[nodiscard]] int red(int x, int y) const { return static_cast<int>(pixel(x, y) >> 16 & 0xff); }
  [[nodiscard]] int green(int x, int y) const { return static_cast<int>(pixel(x, y) >> 8 & 0xff); }

  bool animates;
  VirtualHostScope host;
  Ref<CALayer> root = make<CALayer>();
  CARenderer renderer;
};

inline constexpr std::uint32_t whitePixel = 0xffffffff;
inline constexpr std::uint32_t blackPixel = 0xff000000;
inline constexpr std::uint32_t redPixel = 0xffff0000;
inline constexpr std::uint32_t greenPixel = 0xff00ff00;

inline Ref<CGColor> red() { return CGColor::srgb(1, 0, 0); }
inline Ref<CGColor> green() { return CGColor::srgb(0, 1, 0); }
inline Ref<CGColor> black() { return CGColor::black(); }

}  // namespace bkuk
