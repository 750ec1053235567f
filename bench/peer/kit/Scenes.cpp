#include "bench/peer/kit/Scenes.h"

#include "bench/peer/kit/CellLayout.h"
#include "bench/peer/kit/ProgressBar.h"
#include "bench/peer/kit/Text.h"
#include "bench/peer/kit/TitledMark.h"

namespace bkuk::bench {

namespace {

Ref<TitledMark> makeMark(MarkShape shape, int index, CheckState check) {
  auto control = make<TitledMark>(shape, peer::controlTitle(index));
  control->setCheckState(check);
  return control;
}

Ref<NSView> makeControl(int index) {
  using peer::ControlKind;
  switch (peer::kindOf(index)) {
    case ControlKind::checkBox:
      return makeMark(MarkShape::box, index, peer::checkStateOf(index));
    case ControlKind::radioButton:
      return makeMark(MarkShape::circle, index, peer::isRadioOn(index) ? CheckState::on : CheckState::off);
    case ControlKind::progressBar:
      return make<ProgressBar>(peer::percentOf(index) / 100.0);
    case ControlKind::label:
      break;
  }
  return makeLabel(peer::controlTitle(index));
}

template <typename MakeView>
std::unique_ptr<Stage> stageOf(const peer::CellGrid& cells, const MakeView& makeView) {
  auto stage = std::make_unique<Stage>();
  CellLayout layout(stage->content(), cells);
  for (int i = 0; i < cells.count(); ++i) layout.add(makeView(i), i);
  layout.activate();
  return stage;
}

}  // namespace

std::unique_ptr<Stage> makeControls() { return stageOf(peer::controlGrid, makeControl); }

std::unique_ptr<Stage> makeLabels() {
  return stageOf(peer::labelGrid, [](int index) { return makeLabel(peer::labelTitle(index)); });
}

}  // namespace bkuk::bench
