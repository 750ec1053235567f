// Pango and cairo by themselves, on an image in memory: what is below a toolkit, without one.

#include "bench/peer/common/StyledText.h"
#include "bench/peer/pangocairo/Workloads.h"

using namespace peer;

int main(int argc, char** argv) {
  return runWorkload(argc, argv,
                     {
                         {"markup", [] { return readMarkup(piecesOfLongText); }},
                         {"markup-64k", [] { return readMarkup(piecesOfShortText); }},
                         {"measure", measureTexts},
                         {"text-paint", paintTexts},
                         {"icon-cached", drawIcons},
                         {"icon-stroke", strokeIcons},
                         {"shadow-first", paintFirstShadows},
                         {"shadow-cached", paintShadows},
                     });
}
