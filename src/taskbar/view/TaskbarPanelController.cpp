#include "taskbar/view/TaskbarPanelController.h"

#include <QBuffer>
#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>

#include <algorithm>

#include "model/AppModel.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/TabHitTesting.h"
#include "taskbar/TaskActions.h"
#include "taskbar/TaskbarLocation.h"
#include "taskbar/TrayClicks.h"
#include "taskbar/WorkspacePanelGeometry.h"
#include "taskbar/view/DesktopScenePainter.h"
#include "taskbar/view/GroupPopupView.h"
#include "taskbar/view/QtMenus.h"
#include "taskbar/view/QtPanelWindow.h"
#include "taskbar/view/TransientPopup.h"
#include "taskbar/view/TrayPopups.h"
#include "taskbar/view/WorkspacePopupView.h"

namespace tolv {

namespace {

const QColor kDesktop(40, 44, 52);
// After a press of the strip's menu button, the bar hides this much later.
constexpr double kMenuButtonHideDelay = 0.05;

}  // namespace

class TaskbarPanelController::WindowFactory : public PanelWindowFactory {
 public:
  explicit WindowFactory(AppModel& model) : model_(model) {}

  std::unique_ptr<PanelWindow> makePanel(const PanelSetup& setup) override {
    return std::make_unique<QtPanelWindow>(setup, [this] {
      auto screens = model_.platform().screens->screens();
      return screens.empty() ? 0.0 : screens.front().frame.maxY();
    });
  }

 private:
  AppModel& model_;
};

TaskbarPanelController::TaskbarPanelController(AppModel& model, TextMeasurer& measurer,
                                               AutoHideHooks hooks)
    : model_(model),
      factory_(std::make_unique<WindowFactory>(model)),
      panels_(std::make_unique<TaskbarPanels>(model, *factory_, measurer)),
      autoHide_(std::make_unique<AutoHide>(model, *panels_, withPopupHooks(std::move(hooks)))),
      pointerDrag_(std::make_unique<TaskbarPointerDrag>(model, *panels_)) {
  subscriptions_.push_back(panels_->didRebuild().subscribe([this] { showViews(); }));
  subscriptions_.push_back(panels_->contentChanged().subscribe([this] { redraw(); }));
  subscriptions_.push_back(
      model_.taskbarPopupDismissGeneration.subscribe([this](int64_t) { closeGroupPopup(); }));
  // The display sleeping or waking stops or restarts the auto-hide timers.
  subscriptions_.push_back(
      model_.systemIsInactive.subscribe([this](bool) { autoHide_->systemInactiveChanged(); }));
}

AutoHideHooks TaskbarPanelController::withPopupHooks(AutoHideHooks hooks) {
  onStart_ = hooks.onStart;
  // The popups of the bar are this controller's: they close when the bar
  // hides, and the workspace list keeps the bar in view while it is used.
  if (!hooks.dismissOpenPopups) hooks.dismissOpenPopups = [this] { dismissOpenPopups(); };
  if (!hooks.workspacePopupHoldsBar) {
    hooks.workspacePopupHoldsBar = [this] { return workspacePanelHoldsBar(); };
  }
  return hooks;
}

void TaskbarPanelController::dismissOpenPopups() {
  closeGroupPopup();
  closeWorkspacePanel();
  lastMenu_.reset();
  if (shownMenu_) shownMenu_->close();
}

bool TaskbarPanelController::workspacePanelHoldsBar() const {
  if (!workspacePanel_) return false;
  if (shownMenu_ && shownMenu_->isVisible()) return true;
  return workspacePanelFrame_.contains(model_.platform().pointer->location());
}

TaskbarPanelController::~TaskbarPanelController() = default;

void TaskbarPanelController::rebuildPanels() {
  panels_->rebuildPanels();
}

QtPanelWindow& TaskbarPanelController::window(const TaskbarPanel& panel) const {
  return static_cast<QtPanelWindow&>(*panel.window);
}

void TaskbarPanelController::showViews() {
  for (const auto& panel : panels_->panels()) {
    window(*panel).showTaskbar(
        model_, *panel,
        [this](Point point, MouseButton button, PointerPhase phase) {
          pointerEvent(point, button, phase);
        },
        [this](Point point, double deltaY, bool precise) { scroll(point, deltaY, precise); });
  }
}

std::optional<TabClickReport> TaskbarPanelController::click(Point designPoint, MouseButton button) {
  if (auto part = bufferStripPartAt(*panels_, designPoint)) {
    clickBufferStrip(*part);
    return std::nullopt;
  }
  auto hit = tabAt(*panels_, designPoint);
  if (!hit) return std::nullopt;
  TabClickReport report;
  report.tabID = hit->tab->id;
  report.decision = decideTabClick(*hit->entry, button);
  switch (report.decision.result) {
    case ClickResult::Perform:
      report.performed = performMenuAction(model_, *report.decision.action);
      break;
    case ClickResult::OpenMenu:
      lastMenu_ = entryMenu(model_, *hit->entry);
      break;
    case ClickResult::OpenGroupPopup:
      closeGroupPopup();
      openGroupPopup_ = hit->entry->id;
      // A popup of an overflow card of a top bar keeps the cards open.
      openGroupPopupHoldsOverflow_ = hit->tab->row != 0 && isTopEdge(panels_->location());
      model_.setGroupPopupShown(*openGroupPopup_,
                                {.shown = true, .holdsOverflow = openGroupPopupHoldsOverflow_});
      showGroupPopup(*hit->panel, *hit->tab, *hit->entry->group);
      break;
    case ClickResult::ToggleWorkspacePanel:
      if (workspacePanel_) {
        closeWorkspacePanel();
      } else {
        showWorkspacePanel(*hit->panel, *hit->tab, *hit->entry->workspaceGroup);
      }
      break;
    case ClickResult::Nothing:
      break;
  }
  return report;
}

void TaskbarPanelController::clickBufferStrip(BufferStripPart part) {
  if (part == BufferStripPart::Rest) {
    autoHide_->hidePanelsImmediately();
    return;
  }
  // The menu button opens the front application's menu of a global menu bar and
  // hides the bar a moment later. A desktop without such a menu bar has nothing
  // to open, as a failed attempt would; the bar still hides.
  menuButtonHide_ = model_.platform().runLoop->scheduleTimer(kMenuButtonHideDelay, 0, 0, [this] {
    menuButtonHide_.reset();
    autoHide_->hidePanelsImmediately();
  });
}

bool TaskbarPanelController::chooseMenuItem(const std::string& title) {
  if (!lastMenu_) return false;
  const MenuItem* item = findMenuItem(*lastMenu_, title);
  if (!item || !item->action || !item->enabled) return false;
  MenuAction action = *item->action;
  lastMenu_.reset();
  return performChosenAction(action);
}

bool TaskbarPanelController::performChosenAction(const MenuAction& action) {
  if (action.command == MenuCommand::OpenWorkspacePanel) return openWorkspacePanel();
  return performMenuAction(model_, action);
}

bool TaskbarPanelController::openWorkspacePanel() {
  for (const auto& panel : panels_->panels()) {
    for (const auto& tab : panel->drawing.tabs) {
      if (!tab.shown || tab.entryIndex >= panel->layout.entries.size()) continue;
      const TaskbarEntry& entry = panel->layout.entries[tab.entryIndex];
      if (!entry.workspaceGroup) continue;
      closeWorkspacePanel();
      showWorkspacePanel(*panel, tab, *entry.workspaceGroup);
      return true;
    }
  }
  return false;
}

void TaskbarPanelController::closeGroupPopup() {
  // The popup may be closing from inside its own click.
  if (popupWindow_) {
    popupWindow_->hide();
    popupWindow_.release()->deleteLater();
  }
  if (!openGroupPopup_) return;
  model_.setGroupPopupShown(*openGroupPopup_,
                            {.shown = false, .holdsOverflow = openGroupPopupHoldsOverflow_});
  openGroupPopup_.reset();
}

bool TaskbarPanelController::clickGroupPopup(GroupPopupPart part, int row, MouseButton button) {
  if (!openGroupPopup_) return false;
  auto group = findGroup(model_, *openGroupPopup_);
  if (!group) {
    closeGroupPopup();
    return false;
  }
  const RunningAppItem* window =
      row >= 0 && static_cast<size_t>(row) < group->windows.size() ? &group->windows[row] : nullptr;
  if (button == MouseButton::Right) {
    if (part == GroupPopupPart::Header) lastMenu_ = groupHeaderMenu(model_, *group);
    if (part == GroupPopupPart::Row && window) lastMenu_ = groupRowMenu(model_, *group, *window);
    if (part == GroupPopupPart::RowClose) lastMenu_ = closeGlyphMenu();
    return false;
  }
  PopupClickDecision decision = decideGroupPopupClick(*group, part, window);
  if (decision.closesPopup) closeGroupPopup();
  return decision.action && performMenuAction(model_, *decision.action);
}

void TaskbarPanelController::showGroupPopup(const TaskbarPanel& panel, const TabDrawing& tab,
                                            const RunningAppGroup& group) {
  GroupPopupContent content = groupPopupContent(model_, group);
  auto view = std::make_unique<GroupPopupView>(
      content, [this](GroupPopupPart part, int row, MouseButton button) {
        clickGroupPopup(part, row, button);
        if (button == MouseButton::Right) popUpLastMenu();
      });
  QSize size = view->sizeHint();
  if (content.scrolls) {
    auto scroller = std::make_unique<QScrollArea>();
    scroller->setWidget(view.release());
    scroller->setFrameShape(QFrame::NoFrame);
    size.setHeight(qRound(kGroupPopupScrollHeight));
    popupWindow_ = std::move(scroller);
  } else {
    popupWindow_ = std::move(view);
  }
  makeTransientPopup(*popupWindow_, [this, window = popupWindow_.get()] {
    if (popupWindow_.get() == window) closeGroupPopup();
  });
  popupWindow_->setWindowOpacity(content.windowAlpha);
  popupWindow_->resize(size);

  // Beside the tab on the side its arrow names, in the toolkit's y-down screen space.
  Rect anchor = tabFrameOnScreen(panel, tab);
  auto screens = model_.platform().screens->screens();
  double top = screens.empty() ? 0.0 : screens.front().frame.maxY();
  double x = anchor.x;
  double y = top - anchor.maxY() - size.height();
  switch (content.arrowEdge) {
    case PopoverEdge::Bottom:
      y = top - anchor.y;
      break;
    case PopoverEdge::Leading:
      x = anchor.maxX();
      y = top - anchor.maxY();
      break;
    case PopoverEdge::Trailing:
      x = anchor.x - size.width();
      y = top - anchor.maxY();
      break;
    case PopoverEdge::Top:
      break;
  }
  popupWindow_->move(qRound(x), qRound(y));
  popupWindow_->show();
}

void TaskbarPanelController::showWorkspacePanel(const TaskbarPanel& panel, const TabDrawing& tab,
                                                const std::vector<ManagedWorkspaceTask>& spaces) {
  auto screens = model_.platform().screens->screens();
  Rect frame = workspacePanelFrame(model_.settings.taskbarLocation, tabFrameOnScreen(panel, tab),
                                   screens, 0, spaces.size());
  workspacePanelSpaces_ = spaces;
  workspacePanelFrame_ = frame;
  workspacePanel_ = std::make_unique<WorkspacePopupView>(
      workspacePopupRows(model_, spaces), workspaceHeaderOpensOverview(model_),
      QSize(qRound(frame.width), qRound(frame.height)),
      [this](int row, WorkspaceRowPart part, MouseButton button) {
        clickWorkspacePanel(row, part, button);
        if (button == MouseButton::Right) popUpLastMenu();
      });
  makeTransientPopup(*workspacePanel_, [this, window = workspacePanel_.get()] {
    if (workspacePanel_.get() == window) closeWorkspacePanel();
  });
  double top = screens.empty() ? 0.0 : screens.front().frame.maxY();
  workspacePanel_->move(qRound(frame.x), qRound(top - frame.maxY()));
  workspacePanel_->show();
}

void TaskbarPanelController::closeWorkspacePanel() {
  // The panel may be closing from inside its own click.
  if (workspacePanel_) {
    workspacePanel_->hide();
    workspacePanel_.release()->deleteLater();
  }
}

bool TaskbarPanelController::clickWorkspacePanel(int row, WorkspaceRowPart part,
                                                 MouseButton button) {
  if (!workspacePanel_) return false;
  if (row < 0) {
    // The header closes the list and opens the overview of all spaces.
    if (button != MouseButton::Left || !workspaceHeaderOpensOverview(model_)) return false;
    closeWorkspacePanel();
    model_.openMissionControl();
    return true;
  }
  if (static_cast<size_t>(row) >= workspacePanelSpaces_.size()) return false;
  const ManagedWorkspaceTask& workspace = workspacePanelSpaces_[static_cast<size_t>(row)];
  if (button == MouseButton::Right) {
    lastMenu_ = workspaceRowMenu(model_, workspace);
    return false;
  }
  auto action = workspaceRowClickAction(workspace, part);
  return action && performMenuAction(model_, *action);
}

void TaskbarPanelController::popUpLastMenu() {
  if (!lastMenu_) return;
  shownMenu_ = makeQMenu(*lastMenu_, [this](const MenuAction& action) {
    lastMenu_.reset();
    performChosenAction(action);
  });
  shownMenu_->popup(QCursor::pos());
}

bool TaskbarPanelController::clickTray(Point designPoint, MouseButton button) {
  auto hit = trayControlAt(*panels_, designPoint);
  if (!hit) return false;
  if (button == MouseButton::Left) clickTrayControl(model_, *hit->panel, *hit->control);
  return true;
}

bool TaskbarPanelController::scroll(Point designPoint, double deltaY, bool /*precise*/) {
  // Both kinds of delta count by their sign only.
  auto hit = trayControlAt(*panels_, designPoint);
  return hit && scrollTrayControl(model_, *hit->control, deltaY);
}

nlohmann::json TaskbarPanelController::describeTray() const {
  return tolv::describeTray(*panels_);
}

bool TaskbarPanelController::clickStartButton(Point designPoint, MouseButton button) {
  for (const auto& panel : panels_->panels()) {
    const auto& start = panel->drawing.startButton;
    if (!start || !panel->window->isVisible()) continue;
    Rect frame =
        panelToDesign(panel->drawing.toPanel.mapRect(start->frame), panel->window->frame());
    if (!frame.contains(designPoint)) continue;
    if (button != MouseButton::Left) return true;
    if (model_.settings.lockApplicationsContainerToTaskbar) {
      model_.settings.lockApplicationsContainerToTaskbar = false;
      model_.persistSettings();
      panels_->refreshContent();
    }
    if (onStart_) onStart_(panel->window->frame());
    return true;
  }
  return false;
}

void TaskbarPanelController::pointerClicked(Point designPoint, MouseButton button) {
  if (clickStartButton(designPoint, button)) return;
  if (clickTray(designPoint, button)) return;
  auto report = click(designPoint, button);
  if (report && report->decision.result == ClickResult::OpenMenu) popUpLastMenu();
}

void TaskbarPanelController::pointerEvent(Point designPoint, MouseButton button,
                                          PointerPhase phase) {
  if (button == MouseButton::Right) {
    if (phase == PointerPhase::Press) pointerClicked(designPoint, button);
    return;
  }
  switch (phase) {
    case PointerPhase::Press:
      pressPoint_ = designPoint;
      pointerDrag_->press(designPoint);
      return;
    case PointerPhase::Move:
      pointerDrag_->move(designPoint);
      return;
    case PointerPhase::Release:
      break;
  }
  std::optional<TaskbarEntry> entry = pointerDrag_->pressedEntry();
  switch (pointerDrag_->release(designPoint)) {
    case PointerGesture::Click:
    case PointerGesture::None:
      pointerClicked(pressPoint_, MouseButton::Left);
      break;
    case PointerGesture::SlipClick:
      if (auto action = decideSlipClick(*entry).action) performMenuAction(model_, *action);
      break;
    case PointerGesture::Drag:
    case PointerGesture::Resize:
      break;
  }
}

void TaskbarPanelController::drag(const std::vector<Point>& path, MouseButton button) {
  if (path.empty()) return;
  pointerEvent(path.front(), button, PointerPhase::Press);
  if (button == MouseButton::Right) return;
  for (size_t i = 1; i < path.size(); ++i)
    pointerEvent(path[i], button, PointerPhase::Move);
  pointerEvent(path.back(), button, PointerPhase::Release);
}

void TaskbarPanelController::redraw() {
  for (const auto& panel : panels_->panels())
    window(*panel).redraw();
  syncTrayPopup();
}

void TaskbarPanelController::syncTrayPopup() {
  auto wanted = wantedTrayPopup(model_);
  std::optional<int> kind = wanted ? std::optional(static_cast<int>(*wanted)) : std::nullopt;
  if (kind == trayPopupKind_) return;
  trayPopupKind_ = kind;
  if (trayPopup_) {
    trayPopup_->hide();
    trayPopup_.release()->deleteLater();
  }
  if (!wanted) return;
  // The popup stands beside its control on the main screen, on the side away
  // from the screen edge.
  std::optional<Rect> anchor;
  for (const auto& panel : panels_->panels()) {
    if (panel->screenIndex != 0) continue;
    for (const auto& control : panel->drawing.tray) {
      if (control.kind == trayPopupAnchor(*wanted)) anchor = trayFrameOnScreen(*panel, control);
    }
  }
  if (!anchor) return;
  switch (*wanted) {
    case TrayPopupKind::AttentionList:
      trayPopup_ = makeAttentionList(model_);
      break;
    case TrayPopupKind::VolumeSlider:
      trayPopup_ = makeMediaSlider(model_, MediaControl::Volume);
      break;
    case TrayPopupKind::BrightnessSlider:
      trayPopup_ = makeMediaSlider(model_, MediaControl::Brightness);
      break;
    case TrayPopupKind::BatteryStatus:
      trayPopup_ = makeBatteryStatus(model_);
      break;
  }
  trayPopup_->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
  QSize size = trayPopup_->sizeHint();
  auto screens = model_.platform().screens->screens();
  double top = screens.empty() ? 0.0 : screens.front().frame.maxY();
  bool topBar = isTopEdge(panels_->location());
  double x = std::max(anchor->maxX() - size.width(), 0.0);
  double y = topBar ? top - anchor->y : top - anchor->maxY() - size.height();
  trayPopup_->move(qRound(x), qRound(y));
  trayPopup_->show();
}

nlohmann::json TaskbarPanelController::describePanels() const {
  return tolv::describePanels(*panels_);
}

nlohmann::json TaskbarPanelController::describeRows() const {
  const TaskRowLayout* layout = panels_->mainLayout();
  return layout ? describeTaskRows(*layout) : nlohmann::json::array();
}

QImage TaskbarPanelController::snapshot(const TaskbarPanel& panel,
                                        const DesktopScene& desktop) const {
  const Rect& screen = panel.screen.frame;
  Rect frame = panel.window->frame();
  QImage canvas(qRound(screen.width), qRound(screen.height), QImage::Format_ARGB32_Premultiplied);
  canvas.fill(kDesktop);
  {
    QPainter painter(&canvas);
    paintDesktopScene(painter, desktop, screen);
  }

  QWidget* view = window(panel).content();
  if (!view) return canvas;
  QImage bar(qRound(frame.width), qRound(frame.height), QImage::Format_ARGB32_Premultiplied);
  bar.fill(Qt::transparent);
  view->render(&bar, QPoint(), QRegion(), QWidget::DrawChildren);

  QPainter painter(&canvas);
  painter.setOpacity(panel.window->alpha());
  // Image rows run down from the screen's top.
  painter.drawImage(QPointF(frame.x - screen.x, screen.maxY() - frame.maxY()), bar);
  return canvas;
}

std::vector<std::string> TaskbarPanelController::saveSnapshots(const std::string& directory,
                                                               const std::string& checkpoint,
                                                               const DesktopScene& desktop) const {
  FileSystem& files = *model_.platform().fileSystem;
  std::vector<std::string> written;
  if (!files.createDirectories(directory)) return written;
  for (const auto& panel : panels_->panels()) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!snapshot(*panel, desktop).save(&buffer, "PNG")) continue;
    std::string path =
        directory + "/" +
        snapshotFileName(checkpoint, panelKindName(PanelKind::Taskbar), panel->screenIndex);
    if (files.writeFileAtomically(path, std::vector<uint8_t>(png.begin(), png.end()))) {
      written.push_back(path);
    }
  }
  return written;
}

std::string snapshotFileName(const std::string& checkpoint, const char* panel, size_t screen) {
  std::string name = checkpoint;
  for (char& c : name) {
    bool safe = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                c == '.' || c == '-' || c == '_';
    if (!safe) c = '_';
  }
  return name + "-" + panel + "-" + std::to_string(screen) + ".png";
}

}  // namespace tolv
