#pragma once

#include <memory>

#include "app/scenario/ScenarioViews.h"

namespace tolv {

class StartMenuPanelController;
class TaskbarPanelController;
class LumoSwitcherPanel;
class FileSystem;
class TextMeasurer;

// The real taskbar panels in a scenario run: the launch sequence builds them
// through these factories, and checkpoints read and picture them.
class PanelScenarioViews : public scenario::ScenarioViews {
 public:
  PanelScenarioViews();
  ~PanelScenarioViews() override;

  ControllerFactories controllerFactories(scenario::TextMeasure measure) override;
  std::optional<nlohmann::json> describePanels() const override;
  std::optional<nlohmann::json> describeRows() const override;
  const TaskRowLayout* mainLayout() const override;
  bool click(Point designPoint, bool rightButton) override;
  void drag(const std::vector<Point>& path, bool rightButton) override;
  bool scroll(Point designPoint, double deltaY, bool precise) override;
  void typeKey(const std::string& key) override;
  std::optional<nlohmann::json> describeTray() const override;
  std::optional<nlohmann::json> openMenu() const override;
  bool chooseMenuItem(const std::string& title) override;
  std::vector<std::string> saveSnapshots(const std::string& directory,
                                         const std::string& checkpoint,
                                         const DesktopScene& desktop) const override;

 private:
  std::unique_ptr<TextMeasurer> measurer_;
  // Owned by the delegate, which the run ends before these views.
  TaskbarPanelController* taskbar_ = nullptr;
  LumoSwitcherPanel* switcherPanel_ = nullptr;
  // Where the switcher's pictures are written.
  FileSystem* files_ = nullptr;
  StartMenuPanelController* startMenu_ = nullptr;
};

}  // namespace tolv
