#pragma once

#include <QWidget>

#include <functional>

#include "startmenu/StartMenuLayout.h"
#include "taskbar/TabClicks.h"

namespace tolv {

class AppModel;

// Draws the start menu's content from the model: the header, the tab strip,
// the shown list, the search box and the right pane's ground, clipped to the
// menu's outline with the notch towards the start button. Presses and keys go
// to the handlers; the view holds no state of its own.
class StartMenuView : public QWidget {
  Q_OBJECT

 public:
  using PressHandler = std::function<void(QPointF, MouseButton)>;
  using KeyHandler = std::function<void(const std::string& key)>;
  StartMenuView(AppModel& model, QWidget* parent, PressHandler onPress, KeyHandler onKey);

  // Where everything stands at the view's present size.
  StartMenuLayout currentLayout() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void paintList(QPainter& painter, const StartMenuLayout& layout);
  void paintSearch(QPainter& painter, const StartMenuLayout& layout);

  AppModel& model_;
  PressHandler onPress_;
  KeyHandler onKey_;
};

}  // namespace tolv
