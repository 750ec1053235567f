#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPalette>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <stdexcept>

#include "bench/peer/common/Memory.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/qt/Display.h"
#include "bench/peer/qtwidgets/Scenes.h"
#include "bench/peer/qtwidgets/Workloads.h"

namespace peer {

namespace {

/// Counts what widgets paint.
class PaintCounter : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
  int count = 0;
};

bool reactsToPointer(const QWidget& widget) { return dynamic_cast<const QAbstractButton*>(&widget); }

QPalette palette(bool isDark) {
  const QColor text = isDark ? Qt::white : Qt::black;
  QPalette palette(isDark ? QColor(0x31363B) : QColor(0xE6E6E6),
                   isDark ? QColor(0x202326) : QColor(0xEFEFEF));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(role, text);
  palette.setColor(QPalette::Base, isDark ? QColor(0x141618) : QColor(Qt::white));
  palette.setColor(QPalette::Highlight, QColor(0x308CC6));
  return palette;
}

}  // namespace

Result create() {
  Stage parent({windowWidth, windowHeight});
  const auto add = [&](const std::string& title) {
    auto* box = new QCheckBox(qtText(title), &parent);
    box->setTristate(true);
  };
  add("what all of them share");
  const auto titles = checkBoxTitles();
  const auto before = residentBytes();
  const auto cost = costOf([&] {
    for (const auto& title : titles) add(title);
  });
  return {createdCount, {cost}, double(residentBytes() - before) / createdCount};
}

Result showControls() {
  std::unique_ptr<Stage> stage;
  const auto cost = costOf([&] {
    stage = makeControls();
    stage->showFirstFrame();
  });
  return {1, {cost}};
}

Result repaintControls() {
  const auto stage = makeControls();
  stage->showFirstFrame();
  Stage::settle();
  return {1, costsOf(40, [&] { stage->paintAgain(); })};
}

Result hover() {
  const auto stage = makeControls();
  stage->showFirstFrame();
  Stage::settle();
  Pointer pointer(Stage::turnUntil);
  const auto rest = [&] { pointer.move(1, 1); };
  const auto enter = [&](const QWidget& widget) {
    pointer.move(widget.x() + 10, widget.y() + widget.height() / 2);
  };
  pointer.move(2, 2);
  rest();
  const auto controls = stage->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  PaintCounter paints;
  for (auto* control : controls) {
    control->installEventFilter(&paints);
    const int before = paints.count;
    enter(*control);
    rest();
    control->removeEventFilter(&paints);
    if (reactsToPointer(*control) && paints.count != before + 2)
      throw std::runtime_error("a control did not follow the pointer");
  }
  const auto cost = costOf([&] {
    for (const auto* control : controls) {
      enter(*control);
      rest();
    }
  });
  return {2 * controlGrid.count(), {cost}};
}

Result changeAppearance() {
  QApplication::setPalette(palette(false));
  const auto stage = makeControls();
  stage->showFirstFrame();
  Stage::settle();
  bool isDark = false;
  return {1, costsOf(10, [&] {
            const int before = stage->paintCount();
            isDark = !isDark;
            QApplication::setPalette(palette(isDark));
            Stage::turnUntil([&] { return stage->paintCount() != before; });
            waitForDisplay();
          })};
}

void start() {
  Stage stage({400, 200});
  auto* layout = new QVBoxLayout(&stage);
  auto* box = new QCheckBox("Check box");
  box->setTristate(true);
  layout->addWidget(box);
  layout->addWidget(new QRadioButton("Radio button"));
  auto* bar = new QProgressBar;
  bar->setTextVisible(false);
  bar->setValue(40);
  layout->addWidget(bar);
  layout->addWidget(new QLabel("Label"));
  layout->addWidget(new QPushButton("Button"));
  stage.showFirstFrame();
  exitAtFirstFrame();
}

}  // namespace peer
