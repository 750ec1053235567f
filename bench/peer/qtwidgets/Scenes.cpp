#include "bench/peer/qtwidgets/Scenes.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>

#include "bench/peer/common/Scene.h"

namespace peer {

namespace {

QWidget* makeCheckBox(int index) {
  auto* box = new QCheckBox(qtText(controlTitle(index)));
  box->setTristate(true);
  box->setCheckState(static_cast<Qt::CheckState>(checkStateOf(index)));
  return box;
}

QWidget* makeRadioButton(int index) {
  auto* button = new QRadioButton(qtText(controlTitle(index)));
  button->setAutoExclusive(false);
  button->setChecked(isRadioOn(index));
  return button;
}

QWidget* makeProgressBar(int index) {
  auto* bar = new QProgressBar;
  bar->setTextVisible(false);
  bar->setMinimumWidth(40);  // else it does not fit into its cell
  bar->setValue(percentOf(index));
  return bar;
}

QWidget* makeControl(int index) {
  switch (kindOf(index)) {
    case ControlKind::checkBox:
      return makeCheckBox(index);
    case ControlKind::radioButton:
      return makeRadioButton(index);
    case ControlKind::progressBar:
      return makeProgressBar(index);
    case ControlKind::label:
      break;
  }
  return new QLabel(qtText(controlTitle(index)));
}

// The widgets belong to the window.
template <typename MakeWidget>
std::unique_ptr<Stage> stageOf(const CellGrid& cells, const MakeWidget& makeWidget) {
  auto stage = std::make_unique<Stage>(QSize(windowWidth, windowHeight));
  auto* layout = new QGridLayout(stage.get());
  layout->setSpacing(0);
  layout->setContentsMargins(cells.margin, cells.margin, cells.margin, cells.margin);
  for (int i = 0; i < cells.count(); ++i)
    layout->addWidget(makeWidget(i), i / cells.columns, i % cells.columns);
  return stage;
}

}  // namespace

std::unique_ptr<Stage> makeControls() { return stageOf(controlGrid, makeControl); }

std::unique_ptr<Stage> makeLabels() {
  return stageOf(labelGrid, [](int index) { return new QLabel(qtText(labelTitle(index))); });
}

}  // namespace peer
