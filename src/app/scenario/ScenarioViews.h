#pragma once

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "app/AppControllers.h"
#include "app/scenario/DesktopSetup.h"
#include "platform/Geometry.h"
#include "taskbar/DesktopScene.h"

namespace tolv {
struct TaskRowLayout;
}

namespace tolv::scenario {

// What the toolkit side adds to a scenario run: the controllers the launch
// sequence builds, and what checkpoints ask of the panels. Core-only runs have
// none, and the fields behind it are left out.
class ScenarioViews {
 public:
  virtual ~ScenarioViews() = default;

  // Called once, before the launch sequence builds the controllers.
  virtual ControllerFactories controllerFactories(TextMeasure measure) = 0;
  // Nothing while there is no bar.
  virtual std::optional<nlohmann::json> describePanels() const = 0;
  virtual std::optional<nlohmann::json> describeRows() const = 0;
  virtual const TaskRowLayout* mainLayout() const = 0;
  // A click of the pointer at a point of the design's coordinates, through the
  // panels' hit testing; whether it met a tab. A right click opens its menu.
  virtual bool click(Point designPoint, bool rightButton) = 0;
  // A button pressed at the path's first point, moved along it, and released
  // at its last, through the panels' hit testing and drop targets.
  virtual void drag(const std::vector<Point>& path, bool rightButton) = 0;
  // A wheel event at a point of the design's coordinates, as a precise
  // (trackpad) delta or a line delta; whether a control consumed it.
  virtual bool scroll(Point designPoint, double deltaY, bool precise) = 0;
  // A key that reached the window with the keyboard focus: the start menu's
  // search box while the menu is open.
  virtual void typeKey(const std::string& key) = 0;
  // The main screen's drawn tray controls; nothing while there is no bar.
  virtual std::optional<nlohmann::json> describeTray() const = 0;
  // The menu the last right click opened and not yet closed.
  virtual std::optional<nlohmann::json> openMenu() const = 0;
  // Chooses the open menu's first item of that title; whether there was one.
  virtual bool chooseMenuItem(const std::string& title) = 0;
  // Saves every panel as DIR/<checkpoint>-<panel>-<screen>.png, over a
  // picture of the desktop's windows.
  virtual std::vector<std::string> saveSnapshots(const std::string& directory,
                                                 const std::string& checkpoint,
                                                 const DesktopScene& desktop) const = 0;
};

}  // namespace tolv::scenario
