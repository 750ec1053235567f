#include <memory>
#include <pango/pangocairo.h>
#include <stdexcept>
#include <vector>

#include "bench/peer/common/Phrases.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/common/StyledText.h"
#include "bench/peer/pangocairo/Canvas.h"
#include "bench/peer/pangocairo/Workloads.h"

namespace peer {

namespace {

struct ObjectRelease {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using Layout = std::unique_ptr<PangoLayout, ObjectRelease>;

PangoContext* textContext() {
  static PangoContext* const context = [] {
    auto* made = pango_font_map_create_context(pango_cairo_font_map_get_default());
    auto* font = pango_font_description_new();
    pango_font_description_set_family(font, fontFamily);
    pango_font_description_set_absolute_size(font, fontSize * PANGO_SCALE);
    pango_context_set_font_description(made, font);
    pango_font_description_free(font);
    return made;
  }();
  return context;
}

Layout makeLayout(const std::string& text) {
  Layout layout(pango_layout_new(textContext()));
  pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
  return layout;
}

int widthOf(PangoLayout* layout) {
  PangoRectangle extents;
  pango_layout_get_extents(layout, nullptr, &extents);
  return extents.width;
}

MarkupForms pangoForms() {
  MarkupForms forms{{"<b>", "<i>", "<u>", "<s>"}, {"</b>", "</i>", "</u>", "</s>"}, "", "\n", ""};
  for (std::size_t i = 0; i < MarkupForms::colors.size(); ++i) {
    forms.open[MarkupForms::plainTags + i] =
        std::string("<span foreground=\"#").append(MarkupForms::colors[i]).append("\">");
    forms.close[MarkupForms::plainTags + i] = "</span>";
  }
  return forms;
}

}  // namespace

Result readMarkup(int pieces) {
  const auto markup = styledText(pangoForms(), pieces);
  return {1, costsOf(7, [&] {
            PangoAttrList* attributes = nullptr;
            char* text = nullptr;
            if (!pango_parse_markup(markup.data(), static_cast<int>(markup.size()), 0, &attributes, &text,
                                    nullptr, nullptr))
              throw std::runtime_error("the markup is malformed");
            pango_attr_list_unref(attributes);
            g_free(text);
          })};
}

Result measureTexts() {
  std::vector<Layout> layouts;
  for (const auto& phrase : phrases(measuredCount)) layouts.push_back(makeLayout(phrase));
  auto width = widthOf(makeLayout("what all of them share").get());
  const auto cost = costOf([&] {
    for (const auto& layout : layouts) width += widthOf(layout.get()) / PANGO_SCALE;
  });
  if (width <= 0) throw std::runtime_error("the texts have no size");
  return {measuredCount, {cost}};
}

Result paintTexts() {
  constexpr int cellWidth = windowWidth / labelGrid.columns;
  constexpr int cellHeight = windowHeight / labelGrid.rows;
  const Canvas canvas(windowWidth, windowHeight);
  std::vector<Layout> layouts;
  for (int i = 0; i < labelGrid.count(); ++i) layouts.push_back(makeLayout(labelTitle(i)));
  return {1, costsOf(40, [&] {
            canvas.clear();
            for (int i = 0; i < labelGrid.count(); ++i) {
              cairo_move_to(canvas.context(), i % labelGrid.columns * cellWidth,
                            i / labelGrid.columns * cellHeight);
              pango_cairo_show_layout(canvas.context(), layouts[static_cast<std::size_t>(i)].get());
            }
          })};
}

}  // namespace peer
