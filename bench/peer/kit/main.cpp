// The kit's part in the comparison with other toolkits.

#include "bench/peer/common/StyledText.h"
#include "bench/peer/kit/Workloads.h"
#include "gallery/brand/Brand.h"

using namespace bkuk::bench;

int main(int argc, char** argv) {
  bkuk::gallery::installBrand();
  return peer::runWorkload(argc, argv,
                           {
                               {"create", create},
                               {"create-frames", createWithoutConstraints},
                               {"first-frame", showControls},
                               {"full-repaint", repaintControls},
                               {"full-repaint-composite", composeControls},
                               {"hover", hover},
                               {"appearance", changeAppearance},
                               {"startup", []() -> Result { start(); }},
                               {"markup", [] { return readMarkup(peer::piecesOfLongText); }},
                               {"markup-64k", [] { return readMarkup(peer::piecesOfShortText); }},
                               {"measure", measureLabels},
                               {"text-paint", repaintLabels},
                               {"animation-sync", animate},
                               {"icon-cached", drawIcons},
                               {"icon-stroke", strokeIcons},
                               {"shadow-first", showShadows},
                               {"shadow-cached", repaintShadows},
                           });
}
