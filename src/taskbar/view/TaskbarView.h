#pragma once

#include <QWidget>

#include <functional>

#include "taskbar/TabClicks.h"

namespace tolv {

class AppModel;
struct TaskbarPanel;

// Draws one bar: the strip over the menu bar, the overflow cards with their
// tabs, the primary row and its tabs, where the panel's drawing puts them.
// It reads the bar's colours from the settings and holds no state of its own.
class TaskbarView : public QWidget {
  Q_OBJECT

 public:
  using ClickHandler = std::function<void(QPointF, MouseButton)>;
  // A wheel turn: the delta along y, in points when precise, else in steps.
  using WheelHandler = std::function<void(QPointF, double deltaY, bool precise)>;
  TaskbarView(const AppModel& model, const TaskbarPanel& panel, QWidget* parent = nullptr,
              ClickHandler onClick = {}, WheelHandler onWheel = {});

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  const AppModel& model_;
  const TaskbarPanel& panel_;
  ClickHandler onClick_;
  WheelHandler onWheel_;
};

}  // namespace tolv
