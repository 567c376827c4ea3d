#pragma once

#include <QImage>

#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "app/AppControllers.h"
#include "taskbar/AutoHide.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

class AppModel;
class TextMeasurer;
class QtPanelWindow;

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

  // The panel as seen on its screen: the screen's area in a plain desktop
  // colour, the panel drawn at its frame with its alpha. One pixel per point.
  QImage snapshot(const TaskbarPanel& panel) const;
  // Saves every taskbar panel as DIR/<checkpoint>-<panel>-<screen>.png and
  // returns the paths written; a file that can't be written is left out.
  std::vector<std::string> saveSnapshots(const std::string& directory,
                                         const std::string& checkpoint) const;

 private:
  class WindowFactory;

  QtPanelWindow& window(const TaskbarPanel& panel) const;
  void showViews();
  void redraw();

  AppModel& model_;
  std::unique_ptr<WindowFactory> factory_;
  std::unique_ptr<TaskbarPanels> panels_;
  std::unique_ptr<AutoHide> autoHide_;
  std::vector<Subscription> subscriptions_;
};

// A name made safe for a file: anything but letters, digits, '.', '-' and '_' becomes '_'.
std::string snapshotFileName(const std::string& checkpoint, const char* panel, size_t screen);

}  // namespace tolv
