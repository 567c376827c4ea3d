#pragma once

#include <functional>
#include <memory>

#include "platform/Geometry.h"
#include "startmenu/StartMenuController.h"
#include "switcher/SwitcherController.h"
#include "taskbar/TaskbarController.h"

namespace tolv {

class AppModel;

// What the application delegate asks of the windows it owns. The toolkit's
// controllers implement these; the delegate stays free of the toolkit. An
// interface that a lower layer implements is declared there (the bar's in
// taskbar/TaskbarController.h, the switcher's in switcher/SwitcherController.h,
// the start menu's in startmenu/StartMenuController.h), so that nothing below
// reaches up into app/.

// The settings window.
class SettingsController {
 public:
  virtual ~SettingsController() = default;
};

// How the entry point makes the controllers. A factory left empty leaves its
// controller out, as for parts not built yet.
struct ControllerFactories {
  std::function<std::unique_ptr<SettingsController>(AppModel&)> makeSettings;
  std::function<std::unique_ptr<StartMenuController>(AppModel&)> makeStartMenu;
  std::function<std::unique_ptr<SwitcherController>(AppModel&)> makeSwitcher;
  // The bar gets the hooks through which it reaches the start menu and the model.
  std::function<std::unique_ptr<TaskbarController>(AppModel&, AutoHideHooks)> makeTaskbar;
};

}  // namespace tolv
