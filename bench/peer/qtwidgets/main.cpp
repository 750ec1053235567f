// Qt Widgets in the comparison of toolkits, in the style that Qt brings itself.

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

#include "bench/peer/common/Scene.h"
#include "bench/peer/common/StyledText.h"
#include "bench/peer/qtwidgets/Workloads.h"

using namespace peer;

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QFont font(fontFamily);
  font.setPixelSize(fontSize);
  QApplication::setFont(font);
  return runWorkload(argc, argv,
                     {
                         {"create", create},
                         {"first-frame", showControls},
                         {"full-repaint", repaintControls},
                         {"hover", hover},
                         {"appearance", changeAppearance},
                         {"startup", []() -> Result { start(); }},
                         {"markup", [] { return readMarkup(piecesOfLongText); }},
                         {"markup-64k", [] { return readMarkup(piecesOfShortText); }},
                         {"measure", measureLabels},
                         {"text-paint", repaintLabels},
                         {"animation-sync", animate},
                         {"icon-cached", drawIcons},
                         {"icon-stroke", strokeIcons},
                         {"shadow-first", showShadows},
                         {"shadow-cached", repaintShadows},
                     });
}
