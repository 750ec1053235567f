#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <string>

namespace peer {

/// The window of a workload, without a frame.
class Stage : public QWidget {
 public:
  explicit Stage(QSize size);

  /// Shows the window; returns when the desktop has its first frame.
  void showFirstFrame();
  /// Lets what was put off happen, so that it is not measured with what follows.
  static void settle();
  /// Handles events and paints what they changed until `condition` holds after one, asleep where nothing
  /// comes.
  static void turnUntil(const std::function<bool()>& condition);
  /// Paints the window and all in it again, now.
  void paintAgain();

  [[nodiscard]] int paintCount() const { return paintCount_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int paintCount_ = 0;
};

[[nodiscard]] inline QString qtText(const std::string& text) { return QString::fromStdString(text); }

}  // namespace peer
