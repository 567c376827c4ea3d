#pragma once

#include <QImage>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Signal.h"
#include "startmenu/StartMenuController.h"
#include "startmenu/StartMenuPlacement.h"
#include "taskbar/TabClicks.h"

class QWidget;

namespace tolv {

class AppModel;
class StartMenuView;

// The start menu's panel in the toolkit: one borderless window, made once and
// kept, that opens beside the start button of the bar it was opened from and
// takes the keyboard for its search box. While it is open it watches presses
// anywhere (a press outside closes it), and activations of other applications.
class StartMenuPanelController : public StartMenuController {
 public:
  explicit StartMenuPanelController(AppModel& model);
  ~StartMenuPanelController() override;
  StartMenuPanelController(const StartMenuPanelController&) = delete;
  StartMenuPanelController& operator=(const StartMenuPanelController&) = delete;

  bool isVisible() const override { return visible_; }
  void show(const Rect& taskbarFrame) override;
  bool containsPointer() const override;
  void setOpacity(double alpha) override;
  void close() override { dismiss(); }
  // Closes the menu from its own actions, at once.
  void dismiss();

  // A press at a point of the design's coordinates inside the open panel: a
  // segment of the tab strip, a row, the row "Search Files & Folders" or its
  // clear button. A right press on a favourite removes it, on a search result
  // reveals it. Whether the point was in the panel.
  bool press(Point designPoint, MouseButton button);
  // A key typed while the panel has the keyboard: characters, "space" and
  // "backspace" edit the search, "return" submits it and closes the menu,
  // "escape" closes it.
  void typeKey(const std::string& key);

  // The panel as checkpoints show it: kind, screen, frame, alpha, visible, and
  // the frames of the shown rows with their titles.
  nlohmann::json describePanel() const;
  // Whether the panel was ever opened (until then it isn't described).
  bool wasShown() const { return wasShown_; }
  // Paints the open panel onto a picture of its screen.
  void paintOnto(QImage& screenPicture, const Rect& screenFrame) const;
  size_t screenIndex() const { return screenIndex_; }

 private:
  Point toPanel(Point designPoint) const;
  Rect toDesign(const Rect& panelRect) const;
  void place();
  void watchWhileOpen();
  void pressedAnywhere();

  AppModel& model_;
  std::unique_ptr<QWidget> window_;
  StartMenuView* view_ = nullptr;
  Rect frame_;
  Rect startButtonFrame_;
  size_t screenIndex_ = 0;
  bool visible_ = false;
  bool wasShown_ = false;
  double alpha_ = 1;
  std::vector<Subscription> whileOpen_;
  std::optional<uint64_t> activationObserver_;
  Subscription modelChanged_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolv
