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
  using PointerHandler = std::function<void(QPointF, MouseButton, PointerPhase)>;
  // A wheel turn: the delta along y, in points when precise, else in steps.
  using WheelHandler = std::function<void(QPointF, double deltaY, bool precise)>;
  TaskbarView(const AppModel& model, const TaskbarPanel& panel, QWidget* parent = nullptr,
              PointerHandler onPointer = {}, WheelHandler onWheel = {});

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  const AppModel& model_;
  const TaskbarPanel& panel_;
  PointerHandler onPointer_;
  WheelHandler onWheel_;
  void report(QMouseEvent* event, PointerPhase phase);
};

}  // namespace tolv
