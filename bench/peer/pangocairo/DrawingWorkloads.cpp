#include <numbers>
#include <vector>

#include "bench/peer/common/Icon.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/pangocairo/Canvas.h"
#include "bench/peer/pangocairo/Workloads.h"

namespace peer {

namespace {

constexpr double quarterTurn = std::numbers::pi / 2;

void strokeIcon(cairo_t* context) {
  cairo_set_line_width(context, iconStroke);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  cairo_arc(context, iconCentre.x, iconCentre.y, iconRadius, 0, 4 * quarterTurn);
  cairo_move_to(context, iconHandle[0].x, iconHandle[0].y);
  cairo_line_to(context, iconHandle[1].x, iconHandle[1].y);
  cairo_move_to(context, iconTick[0].x, iconTick[0].y);
  cairo_line_to(context, iconTick[1].x, iconTick[1].y);
  cairo_line_to(context, iconTick[2].x, iconTick[2].y);
  cairo_stroke(context);
}

void strokeIconAt(cairo_t* context, int x, int y) {
  cairo_save(context);
  cairo_translate(context, x, y);
  strokeIcon(context);
  cairo_restore(context);
}

template <typename DrawIcon>
Result repaintIcons(const DrawIcon& drawIcon) {
  const Canvas canvas(iconGrid.columns * iconSize, iconGrid.rows * iconSize);
  return {iconGrid.count(), costsOf(40, [&] {
            canvas.clear();
            for (int i = 0; i < iconGrid.count(); ++i)
              drawIcon(canvas.context(), i % iconGrid.columns * iconSize, i / iconGrid.columns * iconSize);
          })};
}

void addRoundedBox(cairo_t* context, double x, double y) {
  const double right = x + cardWidth - cardRadius;
  const double bottom = y + cardHeight - cardRadius;
  cairo_new_sub_path(context);
  cairo_arc(context, right, y + cardRadius, cardRadius, -quarterTurn, 0);
  cairo_arc(context, right, bottom, cardRadius, 0, quarterTurn);
  cairo_arc(context, x + cardRadius, bottom, cardRadius, quarterTurn, 2 * quarterTurn);
  cairo_arc(context, x + cardRadius, y + cardRadius, cardRadius, 2 * quarterTurn, 3 * quarterTurn);
  cairo_close_path(context);
}

/// The shadow of a card as a mask of its own making, for cairo has none: three means over boxes each way,
/// which come near to a Gaussian with half the blur as its deviation.
class ShadowMask {
 public:
  static constexpr int reach = 30;

  ShadowMask() : canvas_(cardWidth + 2 * reach, cardHeight + 2 * reach, CAIRO_FORMAT_A8) {
    addRoundedBox(canvas_.context(), reach, reach);
    cairo_fill(canvas_.context());
    cairo_surface_flush(canvas_.surface());
    blur();
    cairo_surface_mark_dirty(canvas_.surface());
  }

  [[nodiscard]] cairo_surface_t* surface() const { return canvas_.surface(); }

 private:
  void blur() {
    auto* pixels = cairo_image_surface_get_data(surface());
    const int stride = cairo_image_surface_get_stride(surface());
    const int width = cairo_image_surface_get_width(surface());
    const int height = cairo_image_surface_get_height(surface());
    for (int pass = 0; pass < 3; ++pass) {
      for (int y = 0; y < height; ++y) blurLine(pixels + y * stride, width, 1);
      for (int x = 0; x < width; ++x) blurLine(pixels + x, height, stride);
    }
  }
  void blurLine(unsigned char* first, int count, int step) {
    constexpr int radius = shadowBlur / 2 - 1;
    line_.assign(static_cast<std::size_t>(count + 2 * radius + 1), 0);
    for (int i = 0; i < count; ++i) line_[static_cast<std::size_t>(i + radius + 1)] = first[i * step];
    int sum = 0;
    for (int i = 0; i < radius; ++i) sum += line_[static_cast<std::size_t>(i + radius + 1)];
    for (int i = 0; i < count; ++i) {
      sum += line_[static_cast<std::size_t>(i + 2 * radius + 1) % line_.size()];
      sum -= line_[static_cast<std::size_t>(i)];
      first[i * step] = static_cast<unsigned char>(sum / (2 * radius + 1));
    }
  }

  Canvas canvas_;
  std::vector<int> line_;  // with bare ends on both sides
};

class Cards {
 public:
  Cards() { canvas_.clear(); }

  void paint(const ShadowMask& shadow) const {
    canvas_.clear();
    for (int i = 0; i < cardGrid.count(); ++i)
      paintCard(shadow, i % cardGrid.columns * cardCellWidth + cardInset,
                i / cardGrid.columns * cardCellHeight + cardInset);
  }

 private:
  void paintCard(const ShadowMask& shadow, int x, int y) const {
    auto* context = canvas_.context();
    cairo_set_source_rgba(context, 0, 0, 0, shadowOpacity);
    cairo_mask_surface(context, shadow.surface(), x - ShadowMask::reach,
                       y - ShadowMask::reach + shadowOffset);
    cairo_set_source_rgb(context, 1, 1, 1);
    addRoundedBox(context, x, y);
    cairo_fill(context);
  }

  Canvas canvas_{cardGrid.columns * cardCellWidth, cardGrid.rows* cardCellHeight};
};

}  // namespace

Result strokeIcons() { return repaintIcons(strokeIconAt); }

Result drawIcons() {
  const Canvas icon(iconSize, iconSize, CAIRO_FORMAT_ARGB32);
  strokeIcon(icon.context());
  return repaintIcons([&](cairo_t* context, int x, int y) {
    cairo_set_source_surface(context, icon.surface(), x, y);
    cairo_rectangle(context, x, y, iconSize, iconSize);
    cairo_fill(context);
  });
}

Result paintFirstShadows() {
  const Cards cards;
  return {1, {costOf([&] { cards.paint(ShadowMask()); })}};
}

Result paintShadows() {
  const Cards cards;
  const ShadowMask shadow;
  return {1, costsOf(20, [&] { cards.paint(shadow); })};
}

}  // namespace peer
