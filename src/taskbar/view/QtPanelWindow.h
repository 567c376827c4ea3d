#pragma once

#include <QWidget>

#include <functional>
#include <memory>

#include "taskbar/PanelWindow.h"
#include "taskbar/TabClicks.h"

namespace tolv {

class AppModel;
struct TaskbarPanel;

// A panel of the bar as a frameless, always-on-top toolkit window that never
// takes the focus. Frames are given in the design's coordinates and placed in
// the toolkit's, whose y runs down from the main screen's top.
class QtPanelWindow : public PanelWindow {
 public:
  // `mainScreenHeight` tells the height of the screen the design's origin is on.
  QtPanelWindow(const PanelSetup& setup, std::function<double()> mainScreenHeight);
  ~QtPanelWindow() override;

  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame, bool animated) override;
  double alpha() const override { return alpha_; }
  void setAlpha(double alpha) override;
  bool ignoresMouseEvents() const override { return ignoresMouse_; }
  void setIgnoresMouseEvents(bool ignores) override;
  HideTransform transform() const override { return transform_; }
  void setTransform(const HideTransform& transform) override;
  void orderFront() override;
  void orderBack() override;
  void orderOut() override;
  bool isVisible() const override { return visible_; }
  void close() override;

  // Puts the bar's view into a taskbar panel; its presses, moves and releases
  // go to `onPointer` at their point in the design's coordinates.
  void showTaskbar(const AppModel& model, const TaskbarPanel& panel,
                   std::function<void(Point, MouseButton, PointerPhase)> onPointer,
                   std::function<void(Point, double deltaY, bool precise)> onWheel = {});
  // Draws the content again.
  void redraw();
  // The bar's view, once shown.
  QWidget* content() { return content_; }

 private:
  void place();
  void mapWhenSeen();

  std::function<double()> mainScreenHeight_;
  std::unique_ptr<QWidget> widget_;
  QWidget* content_ = nullptr;
  Rect frame_;
  double alpha_ = 1;
  bool ignoresMouse_ = false;
  HideTransform transform_;
  bool visible_ = false;
};

}  // namespace tolv
