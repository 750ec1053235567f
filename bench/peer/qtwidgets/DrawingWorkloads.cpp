#include <QGraphicsDropShadowEffect>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include "bench/peer/common/Icon.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/qtwidgets/Stage.h"
#include "bench/peer/qtwidgets/Workloads.h"

namespace peer {

namespace {

QPainterPath iconPath() {
  const auto point = [](const IconPoint& place) { return QPointF(place.x, place.y); };
  QPainterPath path;
  path.addEllipse(point(iconCentre), iconRadius, iconRadius);
  path.moveTo(point(iconHandle[0]));
  path.lineTo(point(iconHandle[1]));
  path.moveTo(point(iconTick[0]));
  path.lineTo(point(iconTick[1]));
  path.lineTo(point(iconTick[2]));
  return path;
}

void strokeIcon(QPainter& painter, const QPainterPath& path) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, iconStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

/// A window that is covered with one icon, stroked each time or kept as pixels.
class IconStage : public Stage {
 public:
  enum class Source { path, pixmap };
  explicit IconStage(Source source)
      : Stage({iconGrid.columns * iconSize, iconGrid.rows * iconSize}), source_(source) {
    pixmap_.fill(Qt::transparent);
    QPainter painter(&pixmap_);
    strokeIcon(painter, path_);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    Stage::paintEvent(event);
    QPainter painter(this);
    for (int i = 0; i < iconGrid.count(); ++i)
      drawIcon(painter, {i % iconGrid.columns * iconSize, i / iconGrid.columns * iconSize});
  }

 private:
  void drawIcon(QPainter& painter, QPoint origin) const {
    if (source_ == Source::pixmap) return painter.drawPixmap(origin, pixmap_);
    painter.save();
    painter.translate(origin);
    strokeIcon(painter, path_);
    painter.restore();
  }

  const Source source_;
  const QPainterPath path_ = iconPath();
  QPixmap pixmap_{iconSize, iconSize};
};

Result repaintIcons(IconStage::Source source) {
  IconStage stage(source);
  stage.showFirstFrame();
  Stage::settle();
  return {iconGrid.count(), costsOf(40, [&] { stage.paintAgain(); })};
}

class Card : public QWidget {
 public:
  explicit Card(QWidget& parent) : QWidget(&parent) {
    auto* shadow = new QGraphicsDropShadowEffect(this);
    shadow->setBlurRadius(shadowBlur);
    shadow->setOffset(0, shadowOffset);
    shadow->setColor(QColor::fromRgbF(0, 0, 0, shadowOpacity));
    setGraphicsEffect(shadow);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(rect(), cardRadius, cardRadius);
  }
};

// The cards belong to the window.
void addCards(Stage& stage) {
  for (int i = 0; i < cardGrid.count(); ++i) {
    auto* card = new Card(stage);
    card->setGeometry(i % cardGrid.columns * cardCellWidth + cardInset,
                      i / cardGrid.columns * cardCellHeight + cardInset, cardWidth, cardHeight);
  }
}

constexpr QSize cardsSize{cardGrid.columns * cardCellWidth, cardGrid.rows* cardCellHeight};

}  // namespace

Result drawIcons() { return repaintIcons(IconStage::Source::pixmap); }
Result strokeIcons() { return repaintIcons(IconStage::Source::path); }

Result showShadows() {
  Stage stage(cardsSize);
  addCards(stage);
  return {1, {costOf([&] { stage.showFirstFrame(); })}};
}

Result repaintShadows() {
  Stage stage(cardsSize);
  addCards(stage);
  stage.showFirstFrame();
  Stage::settle();
  return {1, costsOf(10, [&] { stage.paintAgain(); })};
}

}  // namespace peer
