#pragma once

#include <QWidget>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "switcher/OverlayLayout.h"
#include "switcher/SwitcherOverlay.h"

class QPainter;

namespace tolv {

class Images;
class LumoSwitcherController;

// The switcher's full-screen window: a borderless toolkit window above every
// other, outside the window manager's stacking on X11, that dims the screen
// and draws the card with the list, the tiles and the preview. Clicks open
// what they hit (a group's chevron opens or closes it), the pointer selects
// the row it moves over, and the right button opens the menu of the row and
// the card; the lock row toggles the lock.
class LumoSwitcherPanel : public QWidget, public SwitcherOverlay {
 public:
  // `mainScreenHeight` tells the height of the screen the design's origin is on.
  LumoSwitcherPanel(Images& images, std::function<double()> mainScreenHeight);
  ~LumoSwitcherPanel() override;

  // The controller whose state is drawn and whose operations clicks call.
  void attach(LumoSwitcherController& controller);

  void showCovering(const Rect& screenFrame) override;
  void hide() override;
  bool isVisible() const override { return shown_; }
  void bringToFront() override;
  void stateChanged() override;

  // The window as drawn now.
  QImage snapshot();
  const OverlayLayout& layout() const { return layout_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void relayout();
  const OverlayRow* rowAt(QPointF point) const;
  // The row's own menu (a window's close and quit) above the card's (hide
  // all, quit all, desktop, reload, the preview modes).
  void showMenu(const OverlayRow* row, QPoint globalPosition);
  void paintRow(QPainter& painter, const OverlayRow& row);
  QImage toolkitImage(const Image& image);

  Images& images_;
  std::function<double()> mainScreenHeight_;
  LumoSwitcherController* controller_ = nullptr;
  OverlayLayout layout_;
  bool shown_ = false;
  bool relayingOut_ = false;
  // The desktop row's picture was asked for in this showing.
  bool desktopAsked_ = false;
  // The tiles that are in sight now, so the controller captures only those.
  std::map<std::string, RunningAppItem> visibleTiles_;
};

}  // namespace tolv
