#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Screens.h"
#include "platform/Signal.h"
#include "taskbar/LayoutCapture.h"
#include "taskbar/OverflowGeometry.h"
#include "taskbar/OverflowReveal.h"
#include "taskbar/PanelWindow.h"
#include "taskbar/TaskRowLayout.h"
#include "taskbar/TaskRowsKeeper.h"
#include "taskbar/TaskbarDrawing.h"

namespace tolv {

class AppModel;
class TextMeasurer;

// One taskbar panel: its window on one screen, and what its view holds.
struct TaskbarPanel {
  uint64_t serial = 0;  // tells panels apart across rebuilds
  size_t screenIndex = 0;
  Screen screen;
  std::unique_ptr<PanelWindow> window;
  // The view's own state, which dies with the panel.
  std::unique_ptr<OverflowReveal> reveal;
  LayoutCapture capture;
  // The primary row's tray at the last layout; a change asks for a new capture.
  double trayLength = -1;
  TaskRowLayout layout;
  TaskbarDrawing drawing;
  // Pointer tracking.
  bool pointerInside = false;
  std::set<int> rowsUnderPointer;
};

// A one-point line along the edge, or a top corner, that shows the hidden bar.
struct TriggerPanel {
  PanelKind kind = PanelKind::EdgeTrigger;
  size_t screenIndex = 0;
  Screen screen;
  bool isLeftCorner = false;
  std::unique_ptr<PanelWindow> window;
  bool pointerInside = false;
};

// The windows of the bar: one panel per screen on the chosen edge, its trigger
// line and corners, their frames and content. Rebuilds everything when the
// screens, the location or the menu bar setting change, and turns pointer
// moves into entering and leaving panels, triggers and overflow cards.
class TaskbarPanels {
 public:
  TaskbarPanels(AppModel& model, PanelWindowFactory& factory, TextMeasurer& measurer);
  ~TaskbarPanels();
  TaskbarPanels(const TaskbarPanels&) = delete;
  TaskbarPanels& operator=(const TaskbarPanels&) = delete;

  // Closes every panel and makes them again for the screens as they are now.
  void rebuildPanels();

  const std::vector<std::unique_ptr<TaskbarPanel>>& panels() const { return panels_; }
  const std::vector<std::unique_ptr<TriggerPanel>>& edgeTriggerPanels() const {
    return edgeTriggers_;
  }
  const std::vector<std::unique_ptr<TriggerPanel>>& topCornerTriggerPanels() const {
    return cornerTriggers_;
  }
  const std::string& location() const { return location_; }

  bool topMenuBufferNeeded();
  // Sets the panel's frame for a content `thickness`, animated when the bar animates.
  void applyPanelFrame(TaskbarPanel& panel, double thickness);
  // The panel heights for the overflow cards, through the cache.
  OverflowGeometry overflowGeometry();

  // Lays out and draws every panel again and publishes the main screen's rows.
  void refreshContent();
  // The row layout of the main screen, if there is a panel on it.
  const TaskRowLayout* mainLayout() const;

  // Told after a rebuild and before it (the auto-hide logic keeps state across it).
  Signal<>& willRebuild() { return willRebuild_; }
  Signal<>& didRebuild() { return didRebuild_; }
  // Told after panels were laid out and drawn again.
  Signal<>& contentChanged() { return contentChanged_; }
  Signal<TaskbarPanel*>& pointerEnteredPanel() { return enteredPanel_; }
  Signal<TaskbarPanel*>& pointerExitedPanel() { return exitedPanel_; }
  Signal<TriggerPanel*>& pointerEnteredTrigger() { return enteredTrigger_; }
  Signal<TriggerPanel*>& pointerExitedTrigger() { return exitedTrigger_; }
  // A settings change the panels or the auto-hide logic react to.
  Signal<>& settingsChanged() { return settingsChanged_; }

 private:
  void makeTaskbarPanel(size_t screenIndex, const Screen& screen);
  std::unique_ptr<TriggerPanel> makeTrigger(PanelKind kind, size_t screenIndex,
                                            const Screen& screen, const Rect& frame,
                                            bool isLeftCorner);
  void layOut(TaskbarPanel& panel);
  // The start button's picture, letter and lock, as the settings choose them.
  void decorateStartButton(StartButtonDrawing& button);
  void trackPointer(Point location);
  void noticeSettings();
  void postRebuild();

  AppModel& model_;
  PanelWindowFactory& factory_;
  TextMeasurer& measurer_;
  TaskRowsKeeper keeper_;
  OverflowGeometryCache geometryCache_;
  std::vector<std::unique_ptr<TaskbarPanel>> panels_;
  std::vector<std::unique_ptr<TriggerPanel>> edgeTriggers_;
  std::vector<std::unique_ptr<TriggerPanel>> cornerTriggers_;
  std::string location_;
  std::string mediaSliderDisplay_;
  std::optional<Image> startIcon_;
  uint64_t nextSerial_ = 1;
  bool refreshing_ = false;
  bool rebuildPosted_ = false;
  bool refreshAgain_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);

  Signal<> willRebuild_, didRebuild_, contentChanged_, settingsChanged_;
  Signal<TaskbarPanel*> enteredPanel_, exitedPanel_;
  Signal<TriggerPanel*> enteredTrigger_, exitedTrigger_;
  std::vector<Subscription> subscriptions_;
  std::vector<uint64_t> notificationTokens_;
};

}  // namespace tolv
