#include <QCoreApplication>
#include <QLabel>
#include <QTextDocument>
#include <stdexcept>
#include <vector>

#include "bench/peer/common/Phrases.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/common/StyledText.h"
#include "bench/peer/qtwidgets/Scenes.h"
#include "bench/peer/qtwidgets/Workloads.h"

namespace peer {

namespace {

MarkupForms htmlForms() {
  MarkupForms forms{{"<b>", "<i>", "<u>", "<s>"}, {"</b>", "</i>", "</u>", "</s>"}, "<p>", "</p><p>", "</p>"};
  for (std::size_t i = 0; i < MarkupForms::colors.size(); ++i) {
    forms.open[MarkupForms::plainTags + i] =
        std::string("<span style=\"color:#").append(MarkupForms::colors[i]).append("\">");
    forms.close[MarkupForms::plainTags + i] = "</span>";
  }
  return forms;
}

}  // namespace

Result readMarkup(int pieces) {
  const auto html = qtText(styledText(htmlForms(), pieces));
  return {1, costsOf(7, [&] {
            QTextDocument document;
            document.setUndoRedoEnabled(false);
            document.setHtml(html);
          })};
}

Result measureLabels() {
  Stage parent({windowWidth, windowHeight});
  std::vector<QLabel*> labels;
  for (const auto& phrase : phrases(measuredCount)) labels.push_back(new QLabel(qtText(phrase), &parent));
  auto* other = new QLabel("what all of them share", &parent);
  // What the labels have asked for is not part of measuring them.
  QCoreApplication::sendPostedEvents();
  int width = other->sizeHint().width();
  const auto cost = costOf([&] {
    for (const auto* label : labels) width += label->sizeHint().width();
  });
  if (width <= 0) throw std::runtime_error("the labels have no size");
  return {measuredCount, {cost}};
}

Result repaintLabels() {
  const auto stage = makeLabels();
  stage->showFirstFrame();
  Stage::settle();
  return {1, costsOf(40, [&] { stage->paintAgain(); })};
}

}  // namespace peer
