#include "app/view/PanelScenarioViews.h"

#include <QBuffer>
#include <QImage>
#include <QSaveFile>

#include "model/AppModel.h"
#include "platform/qt/QtTextMeasurer.h"
#include "startmenu/view/StartMenuPanelController.h"
#include "switcher/LumoSwitcherController.h"
#include "switcher/view/LumoSwitcherPanel.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/TaskMenus.h"
#include "taskbar/view/TaskbarPanelController.h"

namespace tolv {

PanelScenarioViews::PanelScenarioViews() = default;
PanelScenarioViews::~PanelScenarioViews() = default;

ControllerFactories PanelScenarioViews::controllerFactories(scenario::TextMeasure measure) {
  if (measure == scenario::TextMeasure::Fixed) {
    measurer_ = std::make_unique<FixedTextMeasurer>();
  } else {
    measurer_ = std::make_unique<qt::QtTextMeasurer>();
  }
  ControllerFactories factories;
  TextMeasurer& measurer = *measurer_;
  factories.makeStartMenu = [this](AppModel& model) {
    auto controller = std::make_unique<StartMenuPanelController>(model);
    startMenu_ = controller.get();
    return controller;
  };
  factories.makeTaskbar = [this, &measurer](AppModel& model, AutoHideHooks hooks) {
    auto controller = std::make_unique<TaskbarPanelController>(model, measurer, std::move(hooks));
    taskbar_ = controller.get();
    return controller;
  };
  factories.makeSwitcher = [this](AppModel& model) {
    Screens& screens = *model.platform().screens;
    auto panel = std::make_unique<LumoSwitcherPanel>(*model.platform().images, [&screens] {
      auto all = screens.screens();
      size_t main = screens.mainScreenIndex();
      return main < all.size() ? all[main].frame.maxY() : 0.0;
    });
    switcherPanel_ = panel.get();
    files_ = model.platform().fileSystem;
    auto controller = std::make_unique<LumoSwitcherController>(model, std::move(panel));
    switcherPanel_->attach(*controller);
    return controller;
  };
  return factories;
}

std::optional<nlohmann::json> PanelScenarioViews::describePanels() const {
  if (!taskbar_) return std::nullopt;
  nlohmann::json panels = taskbar_->describePanels();
  // The start menu is listed from its first opening on.
  if (startMenu_ && startMenu_->wasShown()) panels.push_back(startMenu_->describePanel());
  return panels;
}

std::optional<nlohmann::json> PanelScenarioViews::describeRows() const {
  if (!taskbar_) return std::nullopt;
  return taskbar_->describeRows();
}

const TaskRowLayout* PanelScenarioViews::mainLayout() const {
  return taskbar_ ? taskbar_->panels().mainLayout() : nullptr;
}

bool PanelScenarioViews::click(Point designPoint, bool rightButton) {
  if (!taskbar_) return false;
  MouseButton button = rightButton ? MouseButton::Right : MouseButton::Left;
  if (startMenu_ && startMenu_->press(designPoint, button)) return false;
  return taskbar_->clickStartButton(designPoint, button) ||
         taskbar_->clickTray(designPoint, button) ||
         taskbar_->click(designPoint, button).has_value();
}

bool PanelScenarioViews::scroll(Point designPoint, double deltaY, bool precise) {
  return taskbar_ && taskbar_->scroll(designPoint, deltaY, precise);
}

void PanelScenarioViews::typeKey(const std::string& key) {
  if (startMenu_) startMenu_->typeKey(key);
}

std::optional<nlohmann::json> PanelScenarioViews::describeTray() const {
  if (!taskbar_) return std::nullopt;
  return taskbar_->describeTray();
}

void PanelScenarioViews::drag(const std::vector<Point>& path, bool rightButton) {
  if (taskbar_) taskbar_->drag(path, rightButton ? MouseButton::Right : MouseButton::Left);
}

std::optional<nlohmann::json> PanelScenarioViews::openMenu() const {
  if (!taskbar_ || !taskbar_->lastMenu()) return std::nullopt;
  return menuJson(*taskbar_->lastMenu());
}

bool PanelScenarioViews::chooseMenuItem(const std::string& title) {
  return taskbar_ && taskbar_->chooseMenuItem(title);
}

std::vector<std::string> PanelScenarioViews::saveSnapshots(const std::string& directory,
                                                           const std::string& checkpoint,
                                                           const DesktopScene& desktop) const {
  std::vector<std::string> written;
  if (!taskbar_) return written;
  written = taskbar_->saveSnapshots(directory, checkpoint, desktop);
  if (startMenu_ && startMenu_->isVisible()) {
    // The open menu over the picture of its screen's bar.
    size_t screen = startMenu_->screenIndex();
    std::string barPicture =
        directory + "/" + snapshotFileName(checkpoint, panelKindName(PanelKind::Taskbar), screen);
    QImage picture(QString::fromStdString(barPicture));
    for (const auto& panel : taskbar_->panels().panels()) {
      if (picture.isNull() || panel->screenIndex != screen) continue;
      startMenu_->paintOnto(picture, panel->screen.frame);
      std::string path = directory + "/" + snapshotFileName(checkpoint, "startMenu", screen);
      QSaveFile file(QString::fromStdString(path));
      if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit()) {
        written.push_back(path);
      }
    }
  }
  if (switcherPanel_ && switcherPanel_->isVisible() && files_->createDirectories(directory)) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    std::string path = directory + "/" + snapshotFileName(checkpoint, "switcher", 0);
    if (switcherPanel_->snapshot().save(&buffer, "PNG") &&
        files_->writeFileAtomically(path, std::vector<uint8_t>(png.begin(), png.end()))) {
      written.push_back(path);
    }
  }
  return written;
}

}  // namespace tolv
