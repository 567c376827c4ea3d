#pragma once

#include <QImage>
#include <QMenu>

#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "taskbar/AutoHide.h"
#include "taskbar/BufferStrip.h"
#include "taskbar/DesktopScene.h"
#include "taskbar/TabClicks.h"
#include "taskbar/TaskbarController.h"
#include "taskbar/TaskbarPanels.h"
#include "taskbar/TaskbarPointerDrag.h"
#include "taskbar/WorkspacePopup.h"

namespace tolv {

class AppModel;
class TextMeasurer;
class QtPanelWindow;

// What a click on the bar met and did.
struct TabClickReport {
  std::string tabID;
  ClickDecision decision;
  bool performed = false;  // the decision's action ran
};

// The bar's windows in the toolkit: one panel per screen with its view, the
// trigger lines and corners, driven by the panel set and the auto-hide logic of
// the core. Also what scenario checkpoints ask of the panels: their state as
// data and their pictures.
class TaskbarPanelController : public TaskbarController {
 public:
  TaskbarPanelController(AppModel& model, TextMeasurer& measurer, AutoHideHooks hooks = {});
  ~TaskbarPanelController() override;
  TaskbarPanelController(const TaskbarPanelController&) = delete;
  TaskbarPanelController& operator=(const TaskbarPanelController&) = delete;

  void rebuildPanels() override;
  TaskbarPanels& panels() { return *panels_; }
  AutoHide& autoHide() override { return *autoHide_; }

  // Every panel: kind, screen, frame, alpha, visible and the tabs in view.
  nlohmann::json describePanels() const;
  // The main screen's rows, primary row first; an empty list without panels.
  nlohmann::json describeRows() const;

  // A click at a point of the design's coordinates, through the panels' hit
  // testing and the click decision of the tab under it. A right click builds
  // the tab's menu and keeps it as the last menu; nothing when no tab is there.
  std::optional<TabClickReport> click(Point designPoint, MouseButton button);
  // A press of a button, moves with it held through `path`, and its release at
  // the path's end, as a hand does it: a left press on a tab that moves 8
  // points drags it, through the same targets as the pointer; a shorter slip
  // is a click. A right press is a right click where it began.
  void drag(const std::vector<Point>& path, MouseButton button);
  // What the pointer does in a panel's view, in the design's coordinates.
  void pointerEvent(Point designPoint, MouseButton button, PointerPhase phase);
  // A click on a tray control; whether one was under the point.
  bool clickTray(Point designPoint, MouseButton button);
  // A left click on a start button opens the menu, or closes the open one; a
  // menu locked open is unlocked first. Whether a start button was there.
  bool clickStartButton(Point designPoint, MouseButton button);
  // A wheel turn at a point; whether a tray control consumed it.
  bool scroll(Point designPoint, double deltaY, bool precise);
  // The main screen's drawn tray controls in order.
  nlohmann::json describeTray() const;
  // The menu the last right click opened, until an item is chosen.
  const std::optional<Menu>& lastMenu() const { return lastMenu_; }
  // Chooses the last menu's first item of that title; whether its action ran.
  bool chooseMenuItem(const std::string& title);
  // The group whose popup is open, and whether the workspace list is shown.
  const std::optional<std::string>& openGroupPopup() const { return openGroupPopup_; }
  void closeGroupPopup();
  // A click on a part of the open group popup; `row` indexes the group's windows.
  // A right click on the header, a row or a row's close button builds its menu
  // as the last menu. Whether an action ran.
  bool clickGroupPopup(GroupPopupPart part, int row, MouseButton button);
  // The open popup's window, while it is shown.
  QWidget* groupPopupWindow() const { return popupWindow_.get(); }
  bool workspacePanelShown() const { return workspacePanel_ != nullptr; }
  QWidget* workspacePanelWindow() const { return workspacePanel_.get(); }
  void closeWorkspacePanel();
  // A click on the workspace list: `row` -1 is its header. A right click on a
  // row builds the row's menu as the last menu. Whether an action ran.
  bool clickWorkspacePanel(int row, WorkspaceRowPart part, MouseButton button);

  // Closes the group popup, the workspace list and the open menu.
  void dismissOpenPopups();
  // The workspace list is shown and holds the pointer or its own menu.
  bool workspacePanelHoldsBar() const;

  // The panel as seen on its screen: the screen's area in a plain desktop
  // colour with the desktop's windows, the panel drawn at its frame with its
  // alpha. One pixel per point.
  QImage snapshot(const TaskbarPanel& panel, const DesktopScene& desktop = {}) const;
  // Saves every taskbar panel as DIR/<checkpoint>-<panel>-<screen>.png and
  // returns the paths written; a file that can't be written is left out.
  std::vector<std::string> saveSnapshots(const std::string& directory,
                                         const std::string& checkpoint,
                                         const DesktopScene& desktop = {}) const;

 private:
  class WindowFactory;

  AutoHideHooks withPopupHooks(AutoHideHooks hooks);

  QtPanelWindow& window(const TaskbarPanel& panel) const;
  void showViews();
  void redraw();
  // A click of the pointer in a panel's view: the click, then its menu.
  void pointerClicked(Point designPoint, MouseButton button);
  void clickBufferStrip(BufferStripPart part);
  void showGroupPopup(const TaskbarPanel& panel, const TabDrawing& tab,
                      const RunningAppGroup& group);
  void showWorkspacePanel(const TaskbarPanel& panel, const TabDrawing& tab,
                          const std::vector<ManagedWorkspaceTask>& spaces);
  // Shows the last menu at the pointer.
  void popUpLastMenu();
  // A chosen menu item: the workspace list is the controller's own to open,
  // everything else is the model's.
  bool performChosenAction(const MenuAction& action);
  // Opens the workspace list at the tab that stands for all workspaces.
  bool openWorkspacePanel();
  // Opens, keeps or closes the tray's popup as the model's tray state says.
  void syncTrayPopup();

  AppModel& model_;
  // Opens or closes the start menu from a panel's frame; kept from the hooks.
  std::function<void(const Rect&)> onStart_;
  std::unique_ptr<WindowFactory> factory_;
  std::unique_ptr<TaskbarPanels> panels_;
  std::unique_ptr<AutoHide> autoHide_;
  std::unique_ptr<TaskbarPointerDrag> pointerDrag_;
  Point pressPoint_;
  std::vector<Subscription> subscriptions_;
  std::optional<Menu> lastMenu_;
  std::optional<std::string> openGroupPopup_;
  bool openGroupPopupHoldsOverflow_ = false;
  std::unique_ptr<QWidget> workspacePanel_;
  std::vector<ManagedWorkspaceTask> workspacePanelSpaces_;
  Rect workspacePanelFrame_;
  std::unique_ptr<QMenu> shownMenu_;
  std::unique_ptr<QWidget> popupWindow_;
  std::unique_ptr<Timer> menuButtonHide_;
  std::unique_ptr<QWidget> trayPopup_;
  std::optional<int> trayPopupKind_;
};

// A name made safe for a file: anything but letters, digits, '.', '-' and '_' becomes '_'.
std::string snapshotFileName(const std::string& checkpoint, const char* panel, size_t screen);

}  // namespace tolv
